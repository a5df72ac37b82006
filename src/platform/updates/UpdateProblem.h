// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace zumeta {

/// Why the question for updates has no answer. The user learns only that it has none; the log says which.
struct UpdateProblem {
    enum class Kind {
        addressNotAllowed, ///< of the feed, or one that it was moved to
        tooManyRedirects,
        unreachable,
        serverNotTrusted, ///< its certificate
        refused,          ///< the server answered, but not with a file
        tooLarge,
        tooSlow,
        keyUnusable, ///< the one that this build was given
        notSigned,   ///< by the holder of the key, or not these bytes
        feedUnreadable,
        ownVersionUnreadable ///< nothing to compare with
    };
    Kind kind = Kind::unreachable;
    QString detail{}; ///< for the log
};

}
