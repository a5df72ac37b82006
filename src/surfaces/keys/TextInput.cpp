// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/TextInput.h"

#include <algorithm>

namespace zumeta {

namespace {

bool isKindOf(const FirstResponder& responder, std::initializer_list<QLatin1String> names)
{
    return std::any_of(names.begin(), names.end(),
                       [&](QLatin1String name) { return responder.classNames.contains(name); });
}

bool soundsLikeText(const QString& className)
{
    const QString name = className.toLower();
    for (const char* part : {"text", "edit", "field", "input"}) {
        if (name.contains(QLatin1String(part)))
            return true;
    }
    return false;
}

}

TextInputFacts textInputFacts(int focusCount, bool focusObjectTakesInput)
{
    return {focusCount, focusObjectTakesInput, std::nullopt};
}

bool isDirectTextInputActive(const TextInputFacts& facts)
{
    if (facts.focusCount > 0 || facts.hasInputContext)
        return true;
    return facts.firstResponder &&
           isKindOf(*facts.firstResponder, {QLatin1String("NSTextView"), QLatin1String("NSTextField")});
}

bool isTextInputActive(const TextInputFacts& facts)
{
    if (isDirectTextInputActive(facts))
        return true;
    if (!facts.firstResponder)
        return false;
    const FirstResponder& responder = *facts.firstResponder;
    if (!responder.classNames.isEmpty() && soundsLikeText(responder.classNames.front()))
        return true;
    if (isKindOf(responder, {QLatin1String("NSTextView"), QLatin1String("NSTextField"), QLatin1String("NSText")}))
        return true;
    return responder.respondsToMoveLeft && responder.respondsToMoveRight && responder.respondsToInsertText;
}

}
