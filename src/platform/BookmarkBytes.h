// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileIdentity.h"

namespace zumeta {

/// What a bookmark's bytes hold. Equal identities give equal bytes.
QByteArray bookmarkBytes(const FileIdentity& identity);

/// Throws BookmarkError (malformed).
FileIdentity identityInBookmark(const QByteArray& bookmark);

}
