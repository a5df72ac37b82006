// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"
#include "platform/Task.h"

#include <QString>
#include <QStringList>
#include <vector>

namespace zumeta {

/// Asks for files that exist. Texts are translated.
struct OpenPanel {
    QString title;
    QString prompt;         ///< on the button that takes the choice
    QStringList extensions; ///< of the files that can be chosen, in small letters and without the dot
    bool allowsMultiple = false;
};

/// The desktop's way of choosing files. Main thread. The event loop goes on meanwhile, so whoever waits tests
/// afterwards whether the answer is still wanted.
class FileChooser {
public:
    FileChooser() = default;
    virtual ~FileChooser() = default;
    FileChooser(const FileChooser&) = delete; // an interface: copying would slice
    FileChooser& operator=(const FileChooser&) = delete;

    /// In the order in which the panel tells of them; empty when it was closed without a choice.
    virtual Task<std::vector<FileUrl>> showOpenPanel(OpenPanel panel) = 0;
};

}
