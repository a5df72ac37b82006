// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QQuickImageProvider>

namespace zumeta {

/// Draws the house's symbols: "image://icon/NAME/COLOUR" with the colour as hexadecimal digits, with or without alpha.
/// The picture has the size that is asked for, in the screen's own pixels. An unknown name gives no picture.
class IconProvider final : public QQuickImageProvider {
public:
    IconProvider();
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

}
