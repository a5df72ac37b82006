// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"
#include "platform/Task.h"

#include <QString>
#include <functional>
#include <variant>

namespace zumeta {

/// Why there is no proxy.
struct ProxyError {
    enum class Kind {
        exportSessionCreationFailed,
        exportFailed,
        exportCancelled,
        unexpectedExportStatus,
        fileKeyFailed ///< the source could not be read for its key
    };
    Kind kind = Kind::exportFailed;
    QString description; ///< English, one line

    static ProxyError exportSessionCreationFailed();
    /// With the platform's words, where it has any.
    static ProxyError exportFailed(const QString& reason = {});
    static ProxyError exportCancelled();
    static ProxyError unexpectedExportStatus(int status);
    static ProxyError fileKeyFailed(const QString& reason);

    friend bool operator==(const ProxyError&, const ProxyError&) = default;
};

struct ProxyConfig {
    QString presetName;    ///< of the small copy; it alone decides the size
    int size = 0;          ///< pixels; nothing reads it while a proxy is made
    QString fileExtension; ///< without the dot

    static const ProxyConfig& defaultConfig();
};

using ProxyOutcome = std::variant<FileUrl, ProxyError>;

/// Makes the small copies that are played in place of large source files, or finds those that were made before.
class ProxyMaker {
public:
    /// Fractions 0 to 1, any thread.
    using Progress = std::function<void(double)>;

    ProxyMaker() = default;
    virtual ~ProxyMaker() = default;
    ProxyMaker(const ProxyMaker&) = delete; // an interface: copying would slice
    ProxyMaker& operator=(const ProxyMaker&) = delete;

    /// Main thread. `progress` may be empty, and is not called for a proxy that is found.
    virtual Task<ProxyOutcome> generateProxy(FileUrl url, ProxyConfig config, Progress progress) = 0;
};

}
