// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Json.h"
#include "model/ProjectFileError.h"

#include <QUtf8StringView>
#include <algorithm>
#include <string_view>

namespace zumeta {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Recursive descent over the whole text; `m_path` follows it down for the messages.
class Parser {
public:
    explicit Parser(std::string_view text)
        : m_text(text)
    {}

    JsonValue parseAll()
    {
        if (m_text.starts_with("\xef\xbb\xbf"))
            m_position = 3; // a byte order mark, as some editors put it
        JsonValue value = parseValue(0);
        skipSpace();
        if (m_position != m_text.size())
            fail("more text after the end");
        return value;
    }

private:
    [[noreturn]] void fail(const std::string& reason) const
    {
        const auto line = 1 + std::count(m_text.begin(), m_text.begin() + std::ptrdiff_t(m_position), '\n');
        throw ProjectFileError(ProjectFileError::Kind::notJson, m_path,
                               "not valid JSON in line " + std::to_string(line) + ": " + reason);
    }

    /// A null byte at the end, which stands nowhere in JSON.
    char peek() const { return m_position < m_text.size() ? m_text[m_position] : '\0'; }

    void skipSpace()
    {
        while (m_position < m_text.size() &&
               std::string_view(" \t\r\n").find(m_text[m_position]) != std::string_view::npos)
            ++m_position;
    }

    bool take(std::string_view expected)
    {
        if (!m_text.substr(m_position).starts_with(expected))
            return false;
        m_position += expected.size();
        return true;
    }

    JsonValue parseValue(int depth)
    {
        constexpr int kDeepest = 200; // bounds the stack; the format itself is four deep
        if (depth > kDeepest)
            fail("nested too deeply");
        skipSpace();
        if (take("{"))
            return {parseObject(depth)};
        if (take("["))
            return {parseArray(depth)};
        if (take("\""))
            return {parseString()};
        if (take("true"))
            return {true};
        if (take("false"))
            return {false};
        if (take("null"))
            return {};
        if (peek() == '-' || isDigit(peek()))
            return {parseNumber()};
        fail(m_position == m_text.size() ? "it ends too early" : "a value is expected");
    }

    JsonValue::Object parseObject(int depth)
    {
        JsonValue::Object object;
        skipSpace();
        if (take("}"))
            return object;
        const std::string path = m_path;
        do {
            skipSpace();
            if (!take("\""))
                fail("a key in quotes is expected");
            std::string key = parseString();
            m_path = keyPathTo(path, key);
            skipSpace();
            if (!take(":"))
                fail("a colon is expected");
            object.push_back({std::move(key), parseValue(depth + 1)});
            skipSpace();
        } while (take(","));
        if (!take("}"))
            fail("a comma or a closing brace is expected");
        m_path = path;
        return object;
    }

    JsonValue::Array parseArray(int depth)
    {
        JsonValue::Array array;
        skipSpace();
        if (take("]"))
            return array;
        const std::string path = m_path;
        do {
            m_path = keyPathTo(path, array.size());
            array.push_back(parseValue(depth + 1));
            skipSpace();
        } while (take(","));
        if (!take("]"))
            fail("a comma or a closing bracket is expected");
        m_path = path;
        return array;
    }

    void skipDigits()
    {
        if (!isDigit(peek()))
            fail("a digit is expected");
        while (isDigit(peek()))
            ++m_position;
    }

    JsonNumber parseNumber()
    {
        const size_t start = m_position;
        take("-");
        if (!take("0"))
            skipDigits();
        if (take("."))
            skipDigits();
        if (take("e") || take("E")) {
            if (!take("+"))
                take("-");
            skipDigits();
        }
        return {std::string(m_text.substr(start, m_position - start))};
    }

    std::string parseString()
    {
        std::string text;
        for (;;) {
            const size_t start = m_position;
            while (m_position < m_text.size() && m_text[m_position] != '"' && m_text[m_position] != '\\' &&
                   static_cast<unsigned char>(m_text[m_position]) >= ' ')
                ++m_position;
            const std::string_view run = m_text.substr(start, m_position - start);
            if (!QUtf8StringView(run.data(), qsizetype(run.size())).isValidUtf8())
                fail("text that is not UTF-8");
            text += run;
            if (take("\""))
                return text;
            if (!take("\\"))
                fail(m_position == m_text.size() ? "it ends within a string" : "a control character in a string");
            appendEscape(text);
        }
    }

    void appendEscape(std::string& text)
    {
        constexpr std::string_view kLetters = "\"\\/bfnrt";
        constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
        if (take("u")) {
            appendCodePoint(text, parseEscapedCodePoint());
            return;
        }
        const size_t index = m_position < m_text.size() ? kLetters.find(m_text[m_position]) : std::string_view::npos;
        if (index == std::string_view::npos)
            fail("an unknown escape in a string");
        ++m_position;
        text.push_back(kMeanings[index]);
    }

    char32_t parseHexUnit()
    {
        char32_t unit = 0;
        for (int i = 0; i < 4; ++i, ++m_position) {
            const char c = peek();
            if (isDigit(c))
                unit = unit * 16 + char32_t(c - '0');
            else if (c >= 'a' && c <= 'f')
                unit = unit * 16 + char32_t(c - 'a' + 10);
            else if (c >= 'A' && c <= 'F')
                unit = unit * 16 + char32_t(c - 'A' + 10);
            else
                fail("a broken \\u escape in a string");
        }
        return unit;
    }

    char32_t parseEscapedCodePoint()
    {
        const char32_t unit = parseHexUnit();
        if (unit < 0xd800 || unit > 0xdfff)
            return unit;
        // Half a pair stands for no character: it could be neither kept nor written again.
        if (unit > 0xdbff || !take("\\u"))
            fail("half a surrogate pair in a string");
        const char32_t low = parseHexUnit();
        if (low < 0xdc00 || low > 0xdfff)
            fail("half a surrogate pair in a string");
        return 0x10000 + ((unit - 0xd800) << 10) + (low - 0xdc00);
    }

    static void appendCodePoint(std::string& text, char32_t point)
    {
        const auto tail = [&text, point](int shift) { text.push_back(char(0x80 | ((point >> shift) & 0x3f))); };
        if (point < 0x80) {
            text.push_back(char(point));
        } else if (point < 0x800) {
            text.push_back(char(0xc0 | (point >> 6)));
            tail(0);
        } else if (point < 0x10000) {
            text.push_back(char(0xe0 | (point >> 12)));
            tail(6);
            tail(0);
        } else {
            text.push_back(char(0xf0 | (point >> 18)));
            tail(12);
            tail(6);
            tail(0);
        }
    }

    std::string_view m_text;
    size_t m_position = 0;
    std::string m_path;
};

}

JsonValue parseJson(const QByteArray& text)
{
    return Parser(std::string_view(text.constData(), size_t(text.size()))).parseAll();
}

}
