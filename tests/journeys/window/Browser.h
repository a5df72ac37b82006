// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QDesktopServices>
#include <QList>
#include <QObject>
#include <QUrl>

namespace zumeta::test {

/// Takes what would go to the user's browser, while it lives.
class Browser : public QObject {
    Q_OBJECT
public:
    Browser() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    Q_INVOKABLE void open(const QUrl& url) { opened.push_back(url); }

    QList<QUrl> opened;
};

}
