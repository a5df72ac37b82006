// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/BoundedDownload.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <utility>

namespace zumeta {

namespace {

using Kind = UpdateProblem::Kind;

/// It says nothing about the user, takes nothing from earlier answers, and leaves nothing for later ones.
QNetworkRequest requestFor(const QUrl& address)
{
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setRawHeader("Accept-Encoding", "identity"); // the signature is of the bytes as they lie there
    request.setRawHeader("User-Agent", "Zumeta");
    request.setRawHeader("Accept-Language", "*");
    return request;
}

int statusOf(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

UpdateProblem problemOf(const QNetworkReply& reply)
{
    if (reply.error() == QNetworkReply::SslHandshakeFailedError)
        return {Kind::serverNotTrusted, reply.errorString()};
    if (statusOf(reply) >= 400)
        return {Kind::refused, QString::number(statusOf(reply))};
    return {Kind::unreachable, reply.errorString()};
}

}

BoundedDownload::BoundedDownload(QNetworkAccessManager& manager, const FetchLimits& limits)
    : m_manager(manager)
    , m_limits(limits)
{}

BoundedDownload::~BoundedDownload()
{
    dropReply();
}

void BoundedDownload::start(const QUrl& address)
{
    if (mayFetch(address, m_limits.schemes))
        get(address);
    else
        end(UpdateProblem{Kind::addressNotAllowed, address.toDisplayString()});
}

void BoundedDownload::get(const QUrl& address)
{
    m_reply = m_manager.get(requestFor(address));
    m_reply->setReadBufferSize(m_limits.bytes + 1);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &BoundedDownload::take);
    connect(m_reply, &QNetworkReply::readyRead, this, &BoundedDownload::take);
    connect(m_reply, &QNetworkReply::finished, this, &BoundedDownload::finish);
}

void BoundedDownload::take()
{
    m_bytes += m_reply->readAll();
    const qint64 announced = m_reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (std::max(announced, qint64(m_bytes.size())) > m_limits.bytes)
        end(UpdateProblem{Kind::tooLarge});
}

void BoundedDownload::finish()
{
    take();
    if (m_result)
        return;
    const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (m_reply->error() != QNetworkReply::NoError)
        end(problemOf(*m_reply));
    else if (!target.isEmpty())
        follow(m_reply->url().resolved(target));
    else if (statusOf(*m_reply) != 200)
        end(UpdateProblem{Kind::refused, QString::number(statusOf(*m_reply))});
    else
        end(std::move(m_bytes));
}

void BoundedDownload::follow(const QUrl& target)
{
    if (!mayRedirect(m_reply->url(), target, m_limits.schemes))
        return end(UpdateProblem{Kind::addressNotAllowed, target.toDisplayString()});
    if (++m_redirects > m_limits.redirects)
        return end(UpdateProblem{Kind::tooManyRedirects});
    dropReply();
    m_bytes.clear();
    get(target);
}

void BoundedDownload::end(Result result)
{
    dropReply();
    m_result = std::move(result);
    Q_EMIT finished();
}

void BoundedDownload::dropReply()
{
    if (!m_reply)
        return;
    disconnect(m_reply, nullptr, this, nullptr);
    m_reply->abort();
    std::exchange(m_reply, nullptr)->deleteLater();
}

}
