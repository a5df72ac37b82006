// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/VideoCompositionConfig.h"

#include <QQuickItem>
#include <QSizeF>
#include <array>
#include <memory>
#include <optional>

namespace zumeta {

class Clock;
class Player;
class PreviewFeed; // moc cannot read the headers of C++20 that it needs

/// The surface of the live preview: shows the composite of both players' pictures of one moment, fitted to the
/// project's shape on a dark blue ground. A change of a value, a picture or the size is on the screen as soon as a
/// worker has composed it; nothing is drawn while nothing changes, and nothing waits.
///
/// The session's values are copied to the fields as they stand there, save that `aboveZoom` holds the camera's base
/// zoom already.
class CompositePlayerNSView : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(double waterlineHeight READ waterlineHeight WRITE setWaterlineHeight NOTIFY valuesChanged FINAL)
    Q_PROPERTY(double aboveZoom READ aboveZoom WRITE setAboveZoom NOTIFY valuesChanged FINAL)
    Q_PROPERTY(double aboveOffset READ aboveOffset WRITE setAboveOffset NOTIFY valuesChanged FINAL)
    Q_PROPERTY(double aboveHorizontalOffset READ aboveHorizontalOffset WRITE setAboveHorizontalOffset NOTIFY
                   valuesChanged FINAL)
    Q_PROPERTY(double timingOffset READ timingOffset WRITE setTimingOffset NOTIFY valuesChanged FINAL)
    Q_PROPERTY(double blendAmount READ blendAmount WRITE setBlendAmount NOTIFY valuesChanged FINAL)
    Q_PROPERTY(ViewMode viewMode READ viewMode WRITE setViewMode NOTIFY valuesChanged FINAL)
    Q_PROPERTY(AlignmentState alignmentState READ alignmentState WRITE setAlignmentState NOTIFY valuesChanged FINAL)
    Q_PROPERTY(QSizeF projectAspectRatio READ projectAspectRatio WRITE setProjectAspectRatio NOTIFY valuesChanged FINAL)
    Q_PROPERTY(double currentTime READ currentTime WRITE setCurrentTime NOTIFY valuesChanged FINAL)
    Q_PROPERTY(double aboveStartTime READ aboveStartTime WRITE setAboveStartTime NOTIFY valuesChanged FINAL)
    Q_PROPERTY(double belowStartTime READ belowStartTime WRITE setBelowStartTime NOTIFY valuesChanged FINAL)
    Q_PROPERTY(bool isAboveVideoBlack READ isAboveVideoBlack WRITE setAboveVideoBlack NOTIFY valuesChanged FINAL)
    Q_PROPERTY(bool isBelowVideoBlack READ isBelowVideoBlack WRITE setBelowVideoBlack NOTIFY valuesChanged FINAL)
    /// `s` of the latest layout: what a click in the picture is reckoned with.
    Q_PROPERTY(double lastScaleFactor READ lastScaleFactor NOTIFY lastScaleFactorChanged FINAL)
public:
    /// In the order of the session's own.
    enum class ViewMode { split, aboveOnly, belowOnly };
    Q_ENUM(ViewMode)
    enum class AlignmentState { none, pickingAbove, pickingBelow };
    Q_ENUM(AlignmentState)

    explicit CompositePlayerNSView(QQuickItem* parent = nullptr);
    ~CompositePlayerNSView() override;

    /// The clock by whose time players are asked for pictures: that of the players' own. Must outlive the surface.
    void setClock(const Clock& clock);
    /// A side without an item has no player here. Players must outlive the surface or be taken from it before.
    void updatePlayers(Player* above, Player* below);

    double waterlineHeight() const { return m_fields.values.waterlineHeight; }
    void setWaterlineHeight(double value) { assign(m_fields.values.waterlineHeight, value); }
    double aboveZoom() const { return m_fields.values.aboveZoom; }
    void setAboveZoom(double value) { assign(m_fields.values.aboveZoom, value); }
    double aboveOffset() const { return m_fields.values.aboveOffset; }
    void setAboveOffset(double value) { assign(m_fields.values.aboveOffset, value); }
    double aboveHorizontalOffset() const { return m_fields.values.aboveHorizontalOffset; }
    void setAboveHorizontalOffset(double value) { assign(m_fields.values.aboveHorizontalOffset, value); }
    double timingOffset() const { return m_fields.values.timingOffset; }
    void setTimingOffset(double value) { assign(m_fields.values.timingOffset, value); }
    double blendAmount() const { return m_fields.values.blendAmount; }
    void setBlendAmount(double value) { assign(m_fields.values.blendAmount, value); }
    ViewMode viewMode() const { return m_fields.viewMode; }
    void setViewMode(ViewMode value) { assign(m_fields.viewMode, value); }
    AlignmentState alignmentState() const { return m_fields.alignmentState; }
    void setAlignmentState(AlignmentState value) { assign(m_fields.alignmentState, value); }
    QSizeF projectAspectRatio() const { return m_fields.projectAspectRatio; }
    void setProjectAspectRatio(QSizeF value) { assign(m_fields.projectAspectRatio, value); }
    double currentTime() const { return m_fields.currentTime; }
    void setCurrentTime(double value) { assign(m_fields.currentTime, value); }
    double aboveStartTime() const { return m_fields.values.aboveStartTime; }
    void setAboveStartTime(double value) { assign(m_fields.values.aboveStartTime, value); }
    double belowStartTime() const { return m_fields.values.belowStartTime; }
    void setBelowStartTime(double value) { assign(m_fields.values.belowStartTime, value); }
    bool isAboveVideoBlack() const { return m_fields.isAboveVideoBlack; }
    void setAboveVideoBlack(bool value) { assign(m_fields.isAboveVideoBlack, value); }
    bool isBelowVideoBlack() const { return m_fields.isBelowVideoBlack; }
    void setBelowVideoBlack(bool value) { assign(m_fields.isBelowVideoBlack, value); }
    double lastScaleFactor() const { return m_lastScaleFactor; }

    /// Pictures that were asked for, of which the newest may still be in the making.
    uint64_t picturesAskedFor() const;

Q_SIGNALS:
    /// A click into the picture while a pick is open: its height, 0 bottom to 1 top. Raised by whoever takes the mouse.
    void pickWaterline(double height);
    /// The pointer's height in the picture while a pick is open, nothing elsewhere. Raised by whoever takes the mouse.
    void hover(std::optional<double> height);
    void valuesChanged();
    void lastScaleFactorChanged();
    /// A picture that was composed anew has reached the screen: that of the request of this number, which count up.
    void pictureShown(quint64 number);

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    struct Fields {
        VideoCompositionConfig values{.waterlineHeight = 350};
        ViewMode viewMode = ViewMode::split;
        AlignmentState alignmentState = AlignmentState::none;
        QSizeF projectAspectRatio{16, 9};
        double currentTime = 0;
        bool isAboveVideoBlack = false;
        bool isBelowVideoBlack = false;
    };

    template <class Value> void assign(Value& field, Value value)
    {
        if (field == value)
            return;
        field = value;
        layOut();
        Q_EMIT valuesChanged();
    }

    void layOut();
    void pictureChanged();
    void follow(QQuickWindow* window);
    void lookWhetherSeen();
    void frameSwapped();

    Fields m_fields;
    double m_lastScaleFactor = 1;
    std::array<QMetaObject::Connection, 2> m_fromWindow;
    std::unique_ptr<PreviewFeed> m_feed;

    // Read by the scene graph while the main thread stands.
    QRectF m_pictureRect;
    bool m_pictureIsNew = false;
    std::optional<quint64> m_painted; ///< until it is on the screen
};

}
