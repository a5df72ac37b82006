// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileUrl.h"

#include <QString>

namespace zumeta {

namespace {

constexpr char kScheme[] = "file://";

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

FileUrl::FileUrl(std::filesystem::path path) : m_path(std::move(path)) {}

std::optional<FileUrl> FileUrl::fromAbsoluteString(const QByteArray& text)
{
    if (!text.startsWith(kScheme))
        return std::nullopt;
    QByteArray rest = text.mid(qsizetype(sizeof kScheme) - 1);
    if (rest.startsWith("localhost/"))
        rest.remove(0, 9);
    if (!rest.isEmpty() && !rest.startsWith('/'))
        return std::nullopt;
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
    return FileUrl(std::filesystem::path(path));
}

QByteArray FileUrl::absoluteString() const
{
    static constexpr char kHex[] = "0123456789ABCDEF";
    QByteArray text(kScheme);
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
    return m_path.filename().native();
}

std::string FileUrl::lowerCaseExtension() const
{
    std::string extension = m_path.extension().native();
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
