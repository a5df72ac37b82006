// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/keys/KeyRule.h"
#include "surfaces/keys/KeyTranslation.h"
#include "surfaces/keys/ModalGate.h"

namespace zumeta {

/// What becomes of a key: a consumed one reaches nothing else, and whoever is asked beforehand whether it is wanted
/// gets the same answer as at the press.
struct KeyDecision {
    bool isConsumed = false;
    std::optional<KeyNotification> notification; ///< to post; a consumed key may ask for nothing
    friend bool operator==(const KeyDecision&, const KeyDecision&) = default;
};

/// Whether the shortcut acts again and again while its key is held: steps and undo do, switches act once per press.
bool repeatsWhileHeld(KeyCode keyCode);

/// A key on its whole way: gate, translation, rule, repetition.
KeyDecision decideKey(const PressedKey& pressed, const TextInputFacts& focus, const ModalGate& gate);

}
