// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/keys/KeyDecision.h"

namespace zumeta {

/// What the window knows when a key comes.
struct WindowKeyFacts {
    ModalGate gate{};
    TextInputFacts focus{};
    bool isComposing = false;  ///< an input method's text is not committed yet
    bool isFullScreen = false; ///< the preview's, within the window
    bool isCompositeStep = false;
};

enum class WindowKeyAction { passOn, consume, post, leaveFullScreen, toggleWindowFullScreen, quit };

/// What the window does with a key before anything in it sees the key. The same for the question whether it is wanted
/// and for the press itself.
struct WindowKey {
    WindowKeyAction action = WindowKeyAction::passOn;
    std::optional<KeyNotification> notification{}; ///< to post
    friend bool operator==(const WindowKey&, const WindowKey&) = default;
};

WindowKey windowKey(const PressedKey& pressed, const WindowKeyFacts& facts);

}
