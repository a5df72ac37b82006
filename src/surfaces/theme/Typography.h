// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QFont>
#include <QObject>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class LanguageManager;

/// The fonts by their roles. Letters follow the language: Chinese, Japanese and Korean write some characters
/// differently. Digits that run stand in a font of their own whose digits are equally wide.
class Typography final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QFont wordmark READ wordmark NOTIFY changed FINAL)
    Q_PROPERTY(QFont cardTitle READ cardTitle NOTIFY changed FINAL)
    Q_PROPERTY(QFont sheetTitle READ sheetTitle NOTIFY changed FINAL)
    Q_PROPERTY(QFont sectionHeader READ sectionHeader NOTIFY changed FINAL)
    Q_PROPERTY(QFont alertTitle READ alertTitle NOTIFY changed FINAL)
    Q_PROPERTY(QFont rowTitle READ rowTitle NOTIFY changed FINAL)
    Q_PROPERTY(QFont buttonLarge READ buttonLarge NOTIFY changed FINAL)
    Q_PROPERTY(QFont valueLabel READ valueLabel NOTIFY changed FINAL)
    Q_PROPERTY(QFont body READ body NOTIFY changed FINAL)
    Q_PROPERTY(QFont bodyStrong READ bodyStrong NOTIFY changed FINAL)
    Q_PROPERTY(QFont smallText READ smallText NOTIFY changed FINAL)
    Q_PROPERTY(QFont smallStrong READ smallStrong NOTIFY changed FINAL)
    Q_PROPERTY(QFont pillNumber READ pillNumber NOTIFY changed FINAL)
    Q_PROPERTY(QFont caption READ caption NOTIFY changed FINAL)
    Q_PROPERTY(QFont captionStrong READ captionStrong NOTIFY changed FINAL)
    Q_PROPERTY(QFont hint READ hint NOTIFY changed FINAL)
    Q_PROPERTY(QFont marker READ marker NOTIFY changed FINAL)
    Q_PROPERTY(QFont selectedMarker READ selectedMarker NOTIFY changed FINAL)
    Q_PROPERTY(QFont lineLabel READ lineLabel NOTIFY changed FINAL)
    Q_PROPERTY(QFont time READ time CONSTANT FINAL)
    Q_PROPERTY(QFont field READ field CONSTANT FINAL)
    Q_PROPERTY(QFont percent READ percent CONSTANT FINAL)
    /// What a line of CJK text is higher than a Latin one of the same size; 0 for the other languages.
    Q_PROPERTY(int extraLineHeight READ extraLineHeight NOTIFY changed FINAL)
public:
    explicit Typography(LanguageManager& languages, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static Typography* create(QQmlEngine* engine, QJSEngine*);

    QFont wordmark() const { return text(28, QFont::DemiBold, -0.6); }
    QFont cardTitle() const { return text(22, QFont::DemiBold, -0.3); }
    QFont sheetTitle() const { return text(20, QFont::DemiBold, -0.3); }
    QFont sectionHeader() const { return text(18, QFont::DemiBold, -0.2); }
    QFont alertTitle() const { return text(17, QFont::DemiBold); }
    QFont rowTitle() const { return text(16, QFont::DemiBold); }
    QFont buttonLarge() const { return text(15, QFont::DemiBold); }
    QFont valueLabel() const { return text(15, QFont::Medium); }
    QFont body() const { return text(14, QFont::Normal); }
    QFont bodyStrong() const { return text(14, QFont::DemiBold); }
    QFont smallText() const { return text(13, QFont::Normal); }
    QFont smallStrong() const { return text(13, QFont::Medium); }
    QFont pillNumber() const { return text(13, QFont::DemiBold); }
    QFont caption() const { return text(12, QFont::Medium); }
    QFont captionStrong() const { return text(12, QFont::DemiBold); }
    QFont hint() const { return text(12, QFont::Bold); }
    QFont marker() const { return text(9, QFont::DemiBold); }
    QFont selectedMarker() const { return text(10, QFont::DemiBold); }
    QFont lineLabel() const { return text(11, QFont::DemiBold); }
    QFont time() const { return digits(14, QFont::Medium); }
    QFont field() const { return digits(16, QFont::DemiBold); }
    QFont percent() const { return digits(34, QFont::DemiBold); }
    int extraLineHeight() const;

Q_SIGNALS:
    void changed();

private:
    /// Sizes in logical pixels, spacing between letters too.
    QFont text(int size, QFont::Weight weight, double spacing = 0) const;
    QFont digits(int size, QFont::Weight weight) const;

    LanguageManager& m_languages;
    bool m_hasOwnDigits = false;
};

}
