// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <memory>
#include <mutex>

namespace zumeta {

/// Exports into one folder take turns at making and removing files there. Whoever begins a turn by asking whether it is
/// cancelled can do no harm to the file of an export that was begun after the cancel: a name that was looked at stays
/// what it is until the turn ends.
class OutputTurns {
public:
    using Turn = std::unique_lock<std::mutex>;

    explicit OutputTurns(const FileUrl& output);
    /// Held for the moment of an operation, never for a whole export.
    [[nodiscard]] Turn take() const { return Turn(*m_mutex); }

private:
    std::shared_ptr<std::mutex> m_mutex;
};

}
