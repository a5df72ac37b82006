// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/TimelineIntent.h"

#include <ostream>

// How intents are told when a test fails.

namespace zumeta {

inline std::ostream& operator<<(std::ostream& out, const DraggingChanged& intent)
{
    return out << "dragging " << (intent.isDragging ? "begins" : "is over");
}
inline std::ostream& operator<<(std::ostream& out, const Seek& intent)
{
    return out << "seek " << intent.time;
}
inline std::ostream& operator<<(std::ostream& out, const SliderMoved&)
{
    return out << "slider moved";
}
inline std::ostream& operator<<(std::ostream& out, const BeginTrimEdit&)
{
    return out << "begin trim edit";
}
inline std::ostream& operator<<(std::ostream& out, const SetTrimStart& intent)
{
    return out << "trim start " << intent.seconds;
}
inline std::ostream& operator<<(std::ostream& out, const SetTrimEnd& intent)
{
    return out << "trim end " << intent.seconds;
}
inline std::ostream& operator<<(std::ostream& out, const MarkerTapped& intent)
{
    return out << "marker tapped " << intent.marker;
}
inline std::ostream& operator<<(std::ostream& out, const MarkerDragStarted& intent)
{
    return out << "marker drag started " << intent.marker;
}
inline std::ostream& operator<<(std::ostream& out, const MarkerMoved& intent)
{
    return out << "marker moved " << intent.time;
}

}
