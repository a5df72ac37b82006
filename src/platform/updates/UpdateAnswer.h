// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/updates/UpdateFeed.h"

namespace zumeta {

/// This program is the newest one, or newer.
struct UpToDate {};

/// What a check comes to: nothing newer, an offer, or no answer.
using UpdateAnswer = std::variant<UpToDate, UpdateFeed, UpdateProblem>;

/// Of what lies on the server: the feed's bytes, and the content of the file with its signature. Nothing in the feed is
/// looked at before the signature has been found to be that of the key's holder.
/// `publicKey` is base64, `runningVersion` what this program calls itself.
UpdateAnswer updateAnswer(const QByteArray& feed, const QByteArray& signature, const QString& publicKey,
                          const QString& runningVersion);

/// One line, without its end.
QString logText(const UpdateProblem& problem);

}
