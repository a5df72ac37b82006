// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/FieldAdjustment.h"

namespace zumeta {

std::optional<FieldAdjustment> FieldAdjustment::of(const QVariantMap& userInfo)
{
    const QVariant direction = userInfo.value(QStringLiteral("direction"));
    if (direction.typeId() != QMetaType::Int)
        return std::nullopt;
    const QVariant isLargeStep = userInfo.value(QStringLiteral("isLargeStep"));
    return FieldAdjustment{direction.toInt(), isLargeStep.typeId() == QMetaType::Bool && isLargeStep.toBool()};
}

}
