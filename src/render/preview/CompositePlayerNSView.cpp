// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/CompositePlayerNSView.h"

#include "render/preview/PictureNode.h"
#include "render/preview/PreviewFeed.h"

namespace zumeta {

namespace {

PreviewMode modeOf(CompositePlayerNSView::ViewMode mode)
{
    switch (mode) {
    case CompositePlayerNSView::ViewMode::aboveOnly:
        return PreviewMode::aboveOnly;
    case CompositePlayerNSView::ViewMode::belowOnly:
        return PreviewMode::belowOnly;
    case CompositePlayerNSView::ViewMode::split:
        break;
    }
    return PreviewMode::split;
}

}

CompositePlayerNSView::CompositePlayerNSView(QQuickItem* parent)
    : QQuickItem(parent)
    , m_feed(std::make_unique<PreviewFeed>([this] { pictureChanged(); }))
{
    setFlag(ItemHasContents);
    follow(window()); // a parent that came with the construction has brought one unheard
}

CompositePlayerNSView::~CompositePlayerNSView() = default;

void CompositePlayerNSView::setClock(const Clock& clock)
{
    m_feed->setClock(clock);
}

void CompositePlayerNSView::updatePlayers(Player* above, Player* below)
{
    m_feed->setPlayers(above, below);
}

uint64_t CompositePlayerNSView::picturesAskedFor() const
{
    return m_feed->picturesAskedFor();
}

void CompositePlayerNSView::layOut()
{
    // Without an extent the old layout stands.
    if (!(width() > 0 && height() > 0))
        return;
    const double ratio = window() ? window()->effectiveDevicePixelRatio() : 1.0;
    const PixelSize surface = devicePixels({width(), height()}, ratio);
    PreviewSituation view;
    view.values = m_fields.values;
    view.mode = modeOf(m_fields.viewMode);
    view.isBelowHidden = m_fields.isBelowVideoBlack;
    view.isAboveHidden = m_fields.isAboveVideoBlack || m_fields.alignmentState == AlignmentState::pickingBelow;
    view.shownSize =
        pictureSizeOn(surface, {m_fields.projectAspectRatio.width(), m_fields.projectAspectRatio.height()});
    // On whole device pixels, so that a picture of that size is shown as it is.
    const int left = (surface.width - view.shownSize.width) / 2;
    const int top = (surface.height - view.shownSize.height) / 2;
    const QRectF rect(left / ratio, top / ratio, view.shownSize.width / ratio, view.shownSize.height / ratio);
    if (m_pictureRect != rect) {
        m_pictureRect = rect;
        update();
    }
    const double scale = view.values.scaleFactor();
    m_feed->setView(std::move(view));
    if (std::exchange(m_lastScaleFactor, scale) != scale)
        Q_EMIT lastScaleFactorChanged();
}

void CompositePlayerNSView::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    layOut();
    update();
}

void CompositePlayerNSView::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange)
        follow(data.window);
    else if (change == ItemDevicePixelRatioHasChanged)
        layOut();
    else if (change == ItemVisibleHasChanged)
        lookWhetherSeen();
    QQuickItem::itemChange(change, data);
}

void CompositePlayerNSView::follow(QQuickWindow* window)
{
    for (const QMetaObject::Connection& connection : m_fromWindow)
        disconnect(connection);
    if (window) {
        m_fromWindow = {
            connect(window, &QQuickWindow::frameSwapped, this, &CompositePlayerNSView::frameSwapped),
            connect(window, &QWindow::visibilityChanged, this, &CompositePlayerNSView::lookWhetherSeen),
        };
    }
    lookWhetherSeen();
    layOut(); // of another ratio of pixels, perhaps
}

void CompositePlayerNSView::lookWhetherSeen()
{
    const QWindow::Visibility visibility = window() ? window()->visibility() : QWindow::Hidden;
    m_feed->setSeen(isVisible() && visibility != QWindow::Hidden && visibility != QWindow::Minimized);
}

void CompositePlayerNSView::pictureChanged()
{
    m_pictureIsNew = true;
    update();
}

void CompositePlayerNSView::frameSwapped()
{
    const std::optional<quint64> shown = std::exchange(m_painted, std::nullopt);
    if (!shown)
        return;
    m_feed->pictureIsOnScreen();
    Q_EMIT pictureShown(*shown);
}

QSGNode* CompositePlayerNSView::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*)
{
    auto* node = static_cast<PictureNode*>(oldNode);
    const bool isFirst = node == nullptr;
    if (isFirst)
        node = new PictureNode(*window()); // owned by the scene graph
    node->setBackdrop(boundingRect());
    // A scene graph that begins anew has lost what it was given.
    if (m_pictureIsNew || isFirst)
        node->setPicture(m_feed->picture(), *window());
    if (std::exchange(m_pictureIsNew, false))
        m_painted = m_feed->pictureNumber();
    node->setPictureRect(m_pictureRect);
    return node;
}

}
