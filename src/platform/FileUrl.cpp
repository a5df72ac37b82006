// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileUrl.h"

#include <string_view>

namespace zumeta {

namespace {

constexpr char kPrefix[] = "file://";

bool standsAsItIs(char c)
{
    const bool letterOrDigit = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return letterOrDigit || std::string_view("/-._~!$&'()*+,=:@").find(c) != std::string_view::npos;
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

}

FileUrl::FileUrl(std::filesystem::path path)
    : m_path(std::move(path))
{
    if (m_path.empty() || m_path.is_absolute())
        return;
    // Without a working folder (it was deleted) the root is as good as any: the file is not there either way.
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    m_path = (error ? std::filesystem::path("/") : folder) / m_path;
}

std::optional<FileUrl> FileUrl::fromAbsoluteString(const QByteArray& text)
{
    const qsizetype colon = text.indexOf(':');
    if (colon < 0 || text.left(colon).compare("file", Qt::CaseInsensitive) != 0)
        return std::nullopt;
    QByteArray rest = text.mid(colon + 1);
    if (rest.startsWith("//")) {
        rest.remove(0, 2);
        if (rest.left(10).compare("localhost/", Qt::CaseInsensitive) == 0)
            rest.remove(0, 9);
        if (!rest.isEmpty() && !rest.startsWith('/'))
            return std::nullopt;
    } else if (!rest.startsWith('/')) {
        return std::nullopt;
    }
    std::string path;
    for (qsizetype i = 0; i < rest.size(); ++i) {
        if (rest[i] != '%') {
            if (rest[i] == '?' || rest[i] == '#' || rest[i] == '\0')
                return std::nullopt;
            path.push_back(rest[i]);
            continue;
        }
        const int high = i + 2 < rest.size() ? hexValue(rest[i + 1]) : -1;
        const int low = i + 2 < rest.size() ? hexValue(rest[i + 2]) : -1;
        const int value = high * 16 + low;
        if (high < 0 || low < 0 || value == 0)
            return std::nullopt;
        path.push_back(char(value));
        i += 2;
    }
    return FileUrl(std::filesystem::path(std::move(path)));
}

QByteArray FileUrl::absoluteString() const
{
    static constexpr char kHex[] = "0123456789ABCDEF";
    QByteArray text(kPrefix);
    for (const char c : m_path.native()) {
        if (standsAsItIs(c)) {
            text.append(c);
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        text.append('%').append(kHex[byte >> 4]).append(kHex[byte & 15]);
    }
    return text;
}

std::string FileUrl::lastPathComponent() const
{
    std::string name = m_path.native();
    const size_t end = name.find_last_not_of('/');
    if (end == std::string::npos)
        return name.empty() ? name : std::string("/");
    name.erase(end + 1);
    const size_t slash = name.rfind('/');
    return slash == std::string::npos ? name : name.substr(slash + 1);
}

std::string FileUrl::lowerCaseExtension() const
{
    std::string extension = std::filesystem::path(lastPathComponent()).extension().native();
    if (!extension.empty())
        extension.erase(0, 1);
    for (char& c : extension) {
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    }
    return extension;
}

QString FileUrl::displayName() const
{
    return QString::fromUtf8(lastPathComponent());
}

}
