// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/ValueRowIntent.h"

#include <ostream>

// How intents are told when a test fails.

namespace zumeta {

inline std::ostream& operator<<(std::ostream& out, const InteractionBegan&)
{
    return out << "interaction began";
}
inline std::ostream& operator<<(std::ostream& out, const SetValue& intent)
{
    return out << "set " << intent.value;
}
inline std::ostream& operator<<(std::ostream& out, const ShowValue&)
{
    return out << "show value";
}
inline std::ostream& operator<<(std::ostream& out, const EditingEnded&)
{
    return out << "editing ended";
}
inline std::ostream& operator<<(std::ostream& out, const FocusCounted& intent)
{
    return out << (intent.hasFocus ? "focus counted in" : "focus counted out");
}
inline std::ostream& operator<<(std::ostream& out, const SelectAll&)
{
    return out << "select all";
}
inline std::ostream& operator<<(std::ostream& out, const LeaveField&)
{
    return out << "leave field";
}

}
