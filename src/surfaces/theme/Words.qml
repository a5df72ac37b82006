// SPDX-License-Identifier: GPL-3.0-or-later
pragma Singleton
import QtQuick
import Zumeta

/// `Words.of("Start")` in a binding follows the language.
QtObject {
    function of(key: string): string {
        return Texts.revision >= 0 ? Texts.localized(key) : "";
    }
}
