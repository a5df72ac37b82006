// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Log.h"

#include <QStringList>
#include <mutex>

namespace zumeta::test {

/// The log's lines while it lives. They may come from any thread.
class LogLines {
public:
    QStringList all() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_lines;
    }

private:
    mutable std::mutex m_mutex;
    QStringList m_lines;
    LogCapture m_capture{[this](const QString& line) {
        const std::scoped_lock lock(m_mutex);
        m_lines += line;
    }};
};

}
