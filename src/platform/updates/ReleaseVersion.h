// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zumeta {

/// The number of a release, such as "1.2.0", or of what comes before one, such as "1.3-beta.2". Numbers count as
/// numbers, so that 1.10 is newer than 1.9, and missing ones as 0. A pre-release is older than its release.
class ReleaseVersion {
public:
    /// One to four numbers between dots, and after a hyphen the names and numbers of a pre-release. Nothing when the
    /// text is anything else, a number has more than nine digits, or the whole more than 64 characters.
    static std::optional<ReleaseVersion> parsed(const QString& text);

    friend std::strong_ordering operator<=>(const ReleaseVersion& left, const ReleaseVersion& right);
    friend bool operator==(const ReleaseVersion&, const ReleaseVersion&) = default;

private:
    /// Numbers are older than names.
    using PreReleasePart = std::variant<uint32_t, std::string>;

    ReleaseVersion() = default;

    std::array<uint32_t, 4> m_numbers{};
    std::vector<PreReleasePart> m_preRelease; ///< empty: a release
};

}
