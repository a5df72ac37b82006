// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/preview/PreviewGuides.h"
#include "surfaces/preview/PreviewStack.h"
#include "surfaces/preview/SurfaceValues.h"

#include <QObject>
#include <QSizeF>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class CompositorViewModel;
class PlaybackClock;
class Player;

/// What the preview shows of the session, and what happens on it handed to the session. Main thread.
class PreviewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool hasSurface READ hasSurface NOTIFY changed FINAL)
    Q_PROPERTY(bool hasSkeletonOverlay READ hasSkeletonOverlay NOTIFY changed FINAL)
    Q_PROPERTY(bool hasMissingMediaView READ hasMissingMediaView NOTIFY changed FINAL)
    Q_PROPERTY(bool isPickOpen READ isPickOpen NOTIFY changed FINAL)
    Q_PROPERTY(bool hasTapGuide READ hasTapGuide NOTIFY changed FINAL)
    Q_PROPERTY(int roomBelow READ roomBelow NOTIFY changed FINAL)
    // Heights on the picture count downward from its upper edge.
    Q_PROPERTY(bool hasWaterlineIndicator READ hasWaterlineIndicator NOTIFY changed FINAL)
    Q_PROPERTY(double waterlineIndicatorOpacity READ waterlineIndicatorOpacity NOTIFY changed FINAL)
    Q_PROPERTY(double waterlineIndicatorY READ waterlineIndicatorY NOTIFY linesMoved FINAL)
    Q_PROPERTY(bool hasFixedLine READ hasFixedLine NOTIFY linesMoved FINAL)
    Q_PROPERTY(double fixedLineY READ fixedLineY NOTIFY linesMoved FINAL)
    Q_PROPERTY(QString fixedLineLabelKey READ fixedLineLabelKey NOTIFY changed FINAL)
    Q_PROPERTY(bool hasPointerLine READ hasPointerLine NOTIFY linesMoved FINAL)
    Q_PROPERTY(double pointerLineY READ pointerLineY NOTIFY linesMoved FINAL)
    Q_PROPERTY(bool hasVerticalGuideLine READ hasVerticalGuideLine NOTIFY changed FINAL)
    Q_PROPERTY(bool hasLockBadge READ hasLockBadge NOTIFY changed FINAL)
    Q_PROPERTY(double guideLineX READ guideLineX NOTIFY linesMoved FINAL)
    Q_PROPERTY(double guideLineWidth READ guideLineWidth NOTIFY changed FINAL)
    Q_PROPERTY(double guideLineOpacity READ guideLineOpacity NOTIFY changed FINAL)
    Q_PROPERTY(double guideBandOpacity READ guideBandOpacity NOTIFY changed FINAL)
public:
    explicit PreviewModel(CompositorViewModel& session, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static PreviewModel* create(QQmlEngine* engine, QJSEngine*);

    bool hasSurface() const { return m_shown.stack.hasSurface; }
    bool hasSkeletonOverlay() const { return m_shown.stack.hasSkeletonOverlay; }
    bool hasMissingMediaView() const { return m_shown.stack.hasMissingMediaView; }
    bool isPickOpen() const { return m_shown.isPickOpen; }
    bool hasTapGuide() const { return m_shown.hasTapGuide; }
    /// That the markers of the trimmer take from the picture's area.
    int roomBelow() const { return m_shown.step == PublishedFields::WorkflowStep::step4 ? 24 : 0; }
    bool hasWaterlineIndicator() const { return m_shown.stack.hasWaterlineIndicator; }
    double waterlineIndicatorOpacity() const { return m_shown.stack.waterlineIndicatorOpacity; }
    double waterlineIndicatorY() const { return m_lines.waterlineY; }
    bool hasFixedLine() const { return m_lines.fixedY.has_value(); }
    double fixedLineY() const { return m_lines.fixedY.value_or(0); }
    QString fixedLineLabelKey() const { return alignmentLabelKey(m_shown.step); }
    bool hasPointerLine() const { return m_lines.pointerY.has_value(); }
    double pointerLineY() const { return m_lines.pointerY.value_or(0); }
    bool hasVerticalGuideLine() const { return m_shown.stack.hasVerticalGuideLine; }
    bool hasLockBadge() const { return m_shown.guide.hasLockBadge; }
    double guideLineX() const { return m_lines.guideX; }
    double guideLineWidth() const { return m_shown.guide.lineWidth; }
    double guideLineOpacity() const { return m_shown.guide.lineOpacity; }
    double guideBandOpacity() const { return m_shown.guide.bandOpacity; }

    /// For the surface: what it is told at every change of the session.
    SurfaceValues surfaceValues() const;
    /// Null where the player has no item.
    Player* player(Side side) const;
    const PlaybackClock& playbackClock() const;
    /// Where a line begins that keys move, as a fraction of the picture's height: the point that was picked before.
    std::optional<double> pickedPoint() const;

    /// The picture's extent in points, and the shape to which heights refer.
    void setSurface(Size bounds, AspectRatio shape);
    void pick(double normalizedHeight);
    /// Above the picture's lower edge, in points; or nothing.
    void hover(std::optional<double> height);

Q_SIGNALS:
    void changed();
    /// Apart from what decides whether there is a surface at all, since a surface that is laid out moves lines.
    void linesMoved();
    /// Raised at every change of the session, also when nothing that is shown differs.
    void updated();

private:
    struct Shown {
        PublishedFields::WorkflowStep step = PublishedFields::WorkflowStep::step1;
        PreviewStack stack;
        VerticalGuideLook guide;
        bool isPickOpen = false;
        bool hasTapGuide = false;
        friend bool operator==(const Shown&, const Shown&) = default;
    };
    struct Lines {
        double waterlineY = 0;
        double guideX = 0;
        std::optional<double> fixedY;
        std::optional<double> pointerY;
        friend bool operator==(const Lines&, const Lines&) = default;
    };

    void update();
    void updateLines();
    Shown look() const;
    Lines lines() const;

    CompositorViewModel& m_session;
    Size m_bounds;
    AspectRatio m_shape;
    Shown m_shown;
    Lines m_lines;
};

}
