// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <exception>

namespace zumeta {

/// Why an export ended without a movie. Values cross threads; inside the pipeline they are thrown.
class ExportError : public std::exception {
public:
    enum class Case {
        exportSessionFailed,
        assetWriterFailed,
        outputURLAlreadyExists,
        exportCancelled,
        missingVideoTrack,
        unknown,
        passedOn ///< an error of the file system or of a source, in its own words
    };

    explicit ExportError(Case reason, QString payload = {});

    Case reason() const noexcept { return m_case; }
    /// What the user reads; English, and not part of the translated texts.
    QString errorDescription() const;
    const char* what() const noexcept override { return m_what.constData(); }

private:
    Case m_case;
    QString m_payload;
    QByteArray m_what;
};

}
