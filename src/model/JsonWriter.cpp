// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/Json.h"

#include <algorithm>

namespace zumeta {

namespace {

class Writer {
public:
    QByteArray takeText() { return std::move(m_text); }

    void operator()(std::monostate) { m_text += "null"; }
    void operator()(bool value) { m_text += value ? "true" : "false"; }
    void operator()(const JsonNumber& number) { append(number.text); }

    void operator()(const std::string& text)
    {
        static constexpr char kHex[] = "0123456789abcdef";
        m_text += '"';
        for (const char c : text) {
            if (c == '"' || c == '\\' || c == '/') {
                m_text += '\\';
                m_text += c;
            } else if (c >= 0 && c < ' ') {
                m_text += "\\u00";
                m_text += kHex[c >> 4];
                m_text += kHex[c & 15];
            } else {
                m_text += c;
            }
        }
        m_text += '"';
    }

    void operator()(const JsonValue::Array& array)
    {
        writeBlock('[', ']', array, [this](const JsonValue& element) { std::visit(*this, element.value); });
    }

    void operator()(const JsonValue::Object& object)
    {
        std::vector<const JsonMember*> members;
        members.reserve(object.size());
        for (const JsonMember& member : object)
            members.push_back(&member);
        std::stable_sort(members.begin(), members.end(),
                         [](const JsonMember* a, const JsonMember* b) { return a->key < b->key; });
        writeBlock('{', '}', members, [this](const JsonMember* member) {
            (*this)(member->key);
            m_text += " : ";
            std::visit(*this, member->value.value);
        });
    }

private:
    void append(const std::string& text) { m_text.append(text.data(), qsizetype(text.size())); }

    void startLine()
    {
        m_text += '\n';
        m_text.append(2 * m_depth, ' ');
    }

    template <class Elements, class Write> void writeBlock(char open, char close, const Elements& elements, Write write)
    {
        m_text += open;
        ++m_depth;
        bool isFirst = true;
        for (const auto& element : elements) {
            if (!isFirst)
                m_text += ',';
            isFirst = false;
            startLine();
            write(element);
        }
        --m_depth;
        if (elements.empty())
            m_text += '\n'; // the blank line between the brackets
        startLine();
        m_text += close;
    }

    QByteArray m_text;
    qsizetype m_depth = 0;
};

}

QByteArray jsonText(const JsonValue& value)
{
    Writer writer;
    std::visit(writer, value.value);
    return writer.takeText();
}

}
