// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/FeedAddress.h"

#include <QHostAddress>

namespace zumeta {

namespace {

bool isHttps(const QUrl& url)
{
    return url.scheme() == QLatin1String("https");
}

bool hasPlainHost(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty() && url.userInfo().isEmpty();
}

/// By its number: what a name leads to is decided elsewhere.
bool isHttpOnLoopback(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") && QHostAddress(url.host()).isLoopback();
}

}

bool mayFetch(const QUrl& address, FeedSchemes schemes)
{
    const bool isAllowedHttp = schemes == FeedSchemes::httpOnLoopbackToo && isHttpOnLoopback(address);
    return hasPlainHost(address) && (isHttps(address) || isAllowedHttp);
}

bool mayRedirect(const QUrl& from, const QUrl& to, FeedSchemes schemes)
{
    return mayFetch(to, schemes) && (isHttps(to) || !isHttps(from));
}

QUrl signatureAddress(const QUrl& feed)
{
    QUrl signature = feed;
    signature.setPath(feed.path(QUrl::FullyEncoded) + QStringLiteral(".sig"), QUrl::TolerantMode);
    return signature;
}

bool isDownloadPage(const QUrl& page)
{
    constexpr int kLongest = 2048;
    return hasPlainHost(page) && isHttps(page) && page.toEncoded().size() <= kLongest;
}

}
