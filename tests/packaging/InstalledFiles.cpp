// SPDX-License-Identifier: GPL-3.0-or-later
#include "InstalledFiles.h"

#include "support/ChildProcess.h"

#include <QFile>
#include <algorithm>
#include <stdexcept>

namespace zumeta::test {

namespace {

const std::filesystem::path kPrefix = std::filesystem::path(INSTALL_TREE) / "usr";

}

std::filesystem::path installed(const std::string& name)
{
    return kPrefix / name;
}

std::vector<std::string> installedNames()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(INSTALL_TREE)) {
        if (!entry.is_directory())
            names.push_back(std::filesystem::relative(entry.path(), kPrefix));
    }
    std::ranges::sort(names);
    return names;
}

QByteArray contentOf(const std::filesystem::path& file)
{
    QFile opened(file);
    if (!opened.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + file.string());
    return opened.readAll();
}

QByteArray unzippedContentOf(const std::filesystem::path& file)
{
    return runOrThrow({"gzip", {"-dc", file}, std::chrono::seconds(10), {}, {}});
}

}
