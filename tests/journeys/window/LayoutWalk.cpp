// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/LayoutWalk.h"

#include <QFontInfo>
#include <QQuickWindow>

namespace zumeta::test {

namespace {

constexpr double kSlack = 1; // logical pixels: letters are measured in fractions
constexpr int kSmallestFontSize = 11;

bool isText(const QQuickItem* item)
{
    return item->inherits("QQuickText") && !item->property("text").toString().isEmpty();
}

QString named(const QQuickItem* item)
{
    const QString text = item->property("text").toString();
    return QStringLiteral("%1 '%2'").arg(QLatin1String(item->metaObject()->className()),
                                         text.isEmpty() ? item->objectName() : text);
}

/// An item that is on its way in or out of sight is not looked at.
void collect(QQuickItem* item, double opacity, std::vector<QQuickItem*>& found)
{
    opacity *= item->opacity();
    if (!item->isVisible() || opacity < 0.05)
        return;
    found.push_back(item);
    QList<QQuickItem*> children = item->childItems();
    std::ranges::stable_sort(children, {}, &QQuickItem::z);
    for (QQuickItem* const child : children)
        collect(child, opacity, found);
}

QRectF sceneRect(const QQuickItem* item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

/// The letters themselves.
QRectF paintedRect(const QQuickItem* text)
{
    const QSizeF painted(text->property("paintedWidth").toDouble(), text->property("paintedHeight").toDouble());
    QRectF rect(QPointF(), painted);
    const int horizontal = text->property("effectiveHorizontalAlignment").toInt();
    const int vertical = text->property("verticalAlignment").toInt();
    if (horizontal & Qt::AlignHCenter)
        rect.moveLeft((text->width() - painted.width()) / 2);
    else if (horizontal & Qt::AlignRight)
        rect.moveLeft(text->width() - painted.width());
    if (vertical & Qt::AlignVCenter)
        rect.moveTop((text->height() - painted.height()) / 2);
    else if (vertical & Qt::AlignBottom)
        rect.moveTop(text->height() - painted.height());
    return text->mapRectToScene(rect);
}

bool isScrolled(const QQuickItem* item)
{
    return item->inherits("QQuickFlickable");
}

/// What of the rectangle its clipping ancestors leave, and whether it can be scrolled about in one of them.
QRectF seenPart(const QQuickItem* item, QRectF rect, bool* isScrollable = nullptr)
{
    for (const QQuickItem* above = item->parentItem(); above; above = above->parentItem()) {
        if (!above->clip())
            continue;
        rect &= sceneRect(above);
        if (isScrolled(above) && isScrollable)
            *isScrollable = true;
    }
    return rect;
}

bool contains(const QRectF& outer, const QRectF& inner)
{
    return outer.adjusted(-kSlack, -kSlack, kSlack, kSlack).contains(inner);
}

bool overlap(const QRectF& a, const QRectF& b)
{
    const QRectF common = a & b;
    return common.width() > kSlack && common.height() > kSlack;
}

void lookAtText(const QQuickItem* text, const QRectF& window, QStringList& faults)
{
    const bool isShortenedName = text->property("elide").toInt() == int(Qt::ElideMiddle);
    if (text->property("truncated").toBool() && !isShortenedName)
        faults << QStringLiteral("%1 is cut off").arg(named(text));
    const QRectF painted = paintedRect(text);
    if (!isShortenedName && !contains(sceneRect(text), painted))
        faults << QStringLiteral("%1 is painted outside its item").arg(named(text));
    bool isScrollable = false;
    const QRectF seen = seenPart(text, painted, &isScrollable);
    if (!isScrollable && !contains(seen, painted))
        faults << QStringLiteral("%1 is clipped").arg(named(text));
    if (!isScrollable && !contains(window, painted))
        faults << QStringLiteral("%1 stands outside the window").arg(named(text));
    const int size = QFontInfo(text->property("font").value<QFont>()).pixelSize();
    const bool isMarkerLabel = text->objectName() == QLatin1String("markerLabel"); // as small as its marker
    if (size < kSmallestFontSize && !isMarkerLabel)
        faults << QStringLiteral("%1 is only %2 high").arg(named(text)).arg(size);
}

template <typename Place> void lookForOverlaps(const std::vector<QQuickItem*>& items, Place place, QStringList& faults)
{
    for (size_t i = 0; i < items.size(); ++i) {
        const QRectF one = seenPart(items[i], place(items[i]));
        for (size_t j = i + 1; j < items.size(); ++j) {
            if (items[i]->isAncestorOf(items[j]) || items[j]->isAncestorOf(items[i]))
                continue;
            if (overlap(one, seenPart(items[j], place(items[j]))))
                faults << QStringLiteral("%1 and %2 overlap").arg(named(items[i]), named(items[j]));
        }
    }
}

/// The guide for newcomers, which dims all the rest and takes what is pressed there.
QQuickItem* guide(QQuickWindow& window)
{
    auto* const overlay = window.findChild<QQuickItem*>(QStringLiteral("onboardingOverlay"));
    return overlay && overlay->isVisible() ? overlay : nullptr;
}

/// The items of the popup that is on top, if a modal one is open.
QQuickItem* modalPopupItem(const QQuickWindow& window)
{
    QQuickItem* found = nullptr;
    for (QQuickItem* const item : window.contentItem()->childItems()) {
        if (!item->inherits("QQuickOverlay"))
            continue;
        for (QQuickItem* const popup : item->childItems()) {
            if (popup->inherits("QQuickPopupItem") && popup->isVisible() && popup->isFocusScope() &&
                popup->parent()->property("modal").toBool())
                found = popup;
        }
    }
    return found;
}

}

std::vector<QQuickItem*> reachableItems(QQuickWindow& window)
{
    std::vector<QQuickItem*> items;
    QQuickItem* front = modalPopupItem(window);
    if (!front)
        front = guide(window);
    collect(front ? front : window.contentItem(), 1, items);
    return items;
}

QStringList layoutFaults(QQuickWindow& window)
{
    const QRectF all(QPointF(), window.contentItem()->size());
    std::vector<QQuickItem*> texts;
    std::vector<QQuickItem*> controls;
    QStringList faults;
    for (QQuickItem* const item : reachableItems(window)) {
        if (isText(item)) {
            texts.push_back(item);
            lookAtText(item, all, faults);
        }
        // Markers stand over the trimmer that they belong to.
        if (item->activeFocusOnTab() && !item->objectName().startsWith(QLatin1String("marker")))
            controls.push_back(item);
    }
    lookForOverlaps(texts, paintedRect, faults);
    lookForOverlaps(controls, sceneRect, faults);
    return faults;
}

}
