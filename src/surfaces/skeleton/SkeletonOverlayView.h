// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "analysis/MotionAnalysisService.h"

#include <QQuickPaintedItem>
#include <optional>
#include <vector>

namespace zumeta {

/// Draws the swimmers that were found in the picture, over all of itself. It takes no hits. Dormant: nothing in the
/// window switches it on.
class SkeletonOverlayView : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
public:
    explicit SkeletonOverlayView(QQuickItem* parent = nullptr);

    void setSkeletons(std::vector<MotionAnalysisService::Skeleton> skeletons);
    void setSelectedPersonId(std::optional<int> id);

    void paint(QPainter* painter) override;

protected:
    void componentComplete() override;

private:
    void follow();

    std::vector<MotionAnalysisService::Skeleton> m_skeletons;
    std::optional<int> m_selectedPersonId;
};

}
