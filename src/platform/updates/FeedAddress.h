// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QUrl>

namespace zumeta {

/// By which roads a feed may come. Plain HTTP to this machine itself is for tests.
enum class FeedSchemes { httpsOnly, httpOnLoopbackToo };

/// Whether a feed may be fetched from there.
bool mayFetch(const QUrl& address, FeedSchemes schemes);
/// Whether a server may send us on from the one to the other: never from a protected connection to an open one.
bool mayRedirect(const QUrl& from, const QUrl& to, FeedSchemes schemes);

/// Of the file beside the feed that holds its signature: the feed's path with ".sig" added.
QUrl signatureAddress(const QUrl& feed);

/// Whether this can be handed to the browser as the page of a download: HTTPS with a host and without a password.
bool isDownloadPage(const QUrl& page);

}
