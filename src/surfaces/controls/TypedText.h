// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace zumeta {

/// What a numeric field lets stand.
struct InputLimits {
    bool acceptsColon = false;
    int greatestLength = 0; ///< in characters
};

/// What stays of a text in a numeric field: digits of any script, points, colons where they are accepted, and a minus
/// in first place; full-width forms become plain ones. It is cut to the greatest length. What can't be read as a number
/// after all of this, such as one with two points, is left for the reading to refuse.
QString filterInput(const QString& text, const InputLimits& limits);

/// The text with a point for each decimal comma, and with the plain sign for what input methods write when their users
/// strike the keys of point and minus. Else the filter would take these out and make another number of the rest.
QString withPlainSigns(QString text);

/// A text that was typed, as it stays in the field, with the caret where it belongs.
struct TypedText {
    QString text;
    int caret = 0; ///< counts as QString does
    friend bool operator==(const TypedText&, const TypedText&) = default;
};
TypedText filterTyped(const TypedText& typed, const InputLimits& limits);

}
