// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QVariantMap>
#include <optional>

namespace zumeta {

/// The request of the arrow keys to the row that has the focus. Every row of the window hears it.
struct FieldAdjustment {
    int direction = 0; ///< +1 or -1
    bool isLargeStep = false;

    /// None without a whole number as the direction; without a yes or no the step is a small one.
    static std::optional<FieldAdjustment> of(const QVariantMap& userInfo);
    friend bool operator==(const FieldAdjustment&, const FieldAdjustment&) = default;
};

}
