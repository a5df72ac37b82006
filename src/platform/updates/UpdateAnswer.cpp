// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/updates/UpdateAnswer.h"

#include "platform/updates/FeedKey.h"

namespace zumeta {

namespace {

using Kind = UpdateProblem::Kind;

QString reason(Kind kind)
{
    switch (kind) {
    case Kind::addressNotAllowed:
        return QStringLiteral("address not allowed");
    case Kind::tooManyRedirects:
        return QStringLiteral("sent on too often");
    case Kind::unreachable:
        return QStringLiteral("unreachable");
    case Kind::serverNotTrusted:
        return QStringLiteral("server not trusted");
    case Kind::refused:
        return QStringLiteral("refused by the server");
    case Kind::tooLarge:
        return QStringLiteral("too large");
    case Kind::tooSlow:
        return QStringLiteral("too slow");
    case Kind::keyUnusable:
        return QStringLiteral("the public key of this build cannot be used");
    case Kind::notSigned:
        return QStringLiteral("not signed with this build's key");
    case Kind::feedUnreadable:
        return QStringLiteral("feed unreadable");
    case Kind::ownVersionUnreadable:
        return QStringLiteral("this build's own version cannot be compared");
    }
    return {};
}

}

UpdateAnswer updateAnswer(const QByteArray& feed, const QByteArray& signature, const QString& publicKey,
                          const QString& runningVersion)
{
    const std::optional<FeedKey> key = FeedKey::fromBase64(publicKey);
    if (!key)
        return UpdateProblem{Kind::keyUnusable};
    if (!key->hasSigned(feed, signature))
        return UpdateProblem{Kind::notSigned};
    const std::optional<ReleaseVersion> running = ReleaseVersion::parsed(runningVersion);
    if (!running)
        return UpdateProblem{Kind::ownVersionUnreadable, runningVersion};
    auto parsed = UpdateFeed::parsed(feed);
    if (const auto* const problem = std::get_if<UpdateProblem>(&parsed))
        return *problem;
    auto& offered = std::get<UpdateFeed>(parsed);
    if (offered.version <= *running)
        return UpToDate{};
    return std::move(offered);
}

QString logText(const UpdateProblem& problem)
{
    constexpr int kLongestDetail = 200; // it may be a server's own
    const QString text = QStringLiteral("Update check failed: ") + reason(problem.kind);
    const QString detail = problem.detail.simplified().left(kLongestDetail);
    return detail.isEmpty() ? text : text + QStringLiteral(" (%1)").arg(detail);
}

}
