// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MovieWriter.h"

#include <QString>
#include <QUuid>
#include <chrono>
#include <vector>

namespace zumeta {

/// What the program says of itself in a movie; empty texts become "unknown".
struct ProgramVersion {
    QString version;
    QString build;
};

/// The five items that a movie carries, in order, under the standard names of their kind.
std::vector<MovieMetadataItem> createExportMetadata(const ProgramVersion& program, const QUuid& exportId,
                                                    std::chrono::sys_seconds now);

}
