// SPDX-License-Identifier: GPL-3.0-or-later
#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>

namespace zumeta {
namespace {

/// The theme as QML has it.
class ThemeColours {
public:
    ThemeColours()
    {
        m_engine.addImportPath(QStringLiteral(":/qt/qml"));
        QQmlComponent component(&m_engine);
        component.setData("import QtQuick\nimport Zumeta\nQtObject { readonly property QtObject theme: Theme }", {});
        m_root.reset(component.create());
        if (m_root)
            m_theme = m_root->property("theme").value<QObject*>();
    }
    bool isLoaded() const { return m_theme != nullptr; }
    QColor colour(const char* name) const { return m_theme->property(name).value<QColor>(); }
    QColor accent(const char* name, const char* use) const
    {
        return m_theme->property(name).value<QObject*>()->property(use).value<QColor>();
    }

private:
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_root;
    QObject* m_theme = nullptr;
};

/// WCAG 2.
double luminance(const QColor& colour)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QColor over(const QColor& top, const QColor& ground)
{
    const auto mixed = [&](float above, float below) { return above * top.alphaF() + below * (1 - top.alphaF()); };
    return QColor::fromRgbF(mixed(top.redF(), ground.redF()), mixed(top.greenF(), ground.greenF()),
                            mixed(top.blueF(), ground.blueF()));
}

constexpr double kReadable = 4.5;
constexpr const char* kGrounds[] = {"window", "panel", "surface1", "surface2", "surface3", "preview"};
constexpr const char* kAccents[] = {"lime", "blue", "gold"};

TEST(Contrast, OfTheTextColoursIsReadableOnEveryGroundThatTheyStandOn)
{
    const ThemeColours theme;
    ASSERT_TRUE(theme.isLoaded());
    for (const char* const ground : kGrounds) {
        for (const char* const text : {"text1", "text2", "text3"}) {
            if (qstrcmp(text, "text3") == 0 && qstrcmp(ground, "surface3") == 0)
                continue; // hints never stand on what is hovered
            EXPECT_GE(contrast(theme.colour(text), theme.colour(ground)), kReadable) << text << " on " << ground;
        }
    }
}

TEST(Contrast, OfTheAccentsIsReadableOnEveryGround)
{
    const ThemeColours theme;
    ASSERT_TRUE(theme.isLoaded());
    for (const char* const accent : kAccents) {
        for (const char* const ground : kGrounds)
            EXPECT_GE(contrast(theme.accent(accent, "base"), theme.colour(ground)), kReadable) << accent << ground;
    }
}

TEST(Contrast, OfTextOnAccentsIsReadableInEveryState)
{
    const ThemeColours theme;
    ASSERT_TRUE(theme.isLoaded());
    for (const char* const accent : kAccents) {
        for (const char* const state : {"base", "hover", "pressed"})
            EXPECT_GE(contrast(theme.accent(accent, "ink"), theme.accent(accent, state)), kReadable) << accent << state;
    }
    for (const char* const state : {"base", "hover", "pressed"})
        EXPECT_GE(contrast(theme.accent("destructive", "ink"), theme.accent("destructive", state)), kReadable) << state;
}

TEST(Contrast, OfTheLabelsOfMarkersIsReadable)
{
    const ThemeColours theme;
    ASSERT_TRUE(theme.isLoaded());
    EXPECT_GE(contrast(theme.colour("text1"), theme.colour("marker")), kReadable);
}

TEST(Contrast, OfTextOnTheDimFillsIsReadable)
{
    const ThemeColours theme;
    ASSERT_TRUE(theme.isLoaded());
    for (const char* const accent : kAccents) {
        for (const char* const ground : {"window", "panel", "surface1"}) {
            const QColor fill = over(theme.accent(accent, "dim"), theme.colour(ground));
            EXPECT_GE(contrast(theme.colour("text1"), fill), kReadable) << accent << ground;
            EXPECT_GE(contrast(theme.accent(accent, "base"), fill), kReadable) << accent << ground;
        }
    }
}

}
}
