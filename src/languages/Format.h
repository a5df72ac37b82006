// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <initializer_list>
#include <variant>

namespace zumeta {

using FormatArgument = std::variant<QString, qint64, double>;

/// The text with its placeholders filled in their order: "%@" with a text, "%d" with a whole number, "%.2f" (or another
/// digit) with a number of that many decimals; "%%" is a percent sign. Numbers are written with a point. What is not a
/// placeholder stays as it stands, so does one without an argument; an argument is never searched for placeholders.
QString formatted(const QString& text, std::initializer_list<FormatArgument> arguments);

}
