// SPDX-License-Identifier: GPL-3.0-or-later
// One term for one thing: where the English text speaks of a thing, each language uses its one word for it.
#include "languages/EnglishTexts.h"
#include "languages/Translations.h"

#include <QRegularExpression>
#include <algorithm>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

using enum AppLanguage;

/// A thing as the English texts name it, and what each language calls it, as regular expressions: words bend.
struct Term {
    const char* english;
    const char16_t* japanese;
    const char16_t* chinese;
    const char16_t* korean;
    const char16_t* portuguese;
    const char16_t* spanish;
    const char16_t* french;
    const char16_t* german;
    const char16_t* italian;

    QString in(AppLanguage language) const
    {
        switch (language) {
        case AppLanguage::english:
            return QString::fromLatin1(english);
        case AppLanguage::japanese:
            return QString::fromUtf16(japanese);
        case AppLanguage::chinese:
            return QString::fromUtf16(chinese);
        case AppLanguage::korean:
            return QString::fromUtf16(korean);
        case AppLanguage::portuguese:
            return QString::fromUtf16(portuguese);
        case AppLanguage::spanish:
            return QString::fromUtf16(spanish);
        case AppLanguage::french:
            return QString::fromUtf16(french);
        case AppLanguage::german:
            return QString::fromUtf16(german);
        case AppLanguage::italian:
            return QString::fromUtf16(italian);
        }
        return {};
    }
};

bool names(const QString& text, const QString& pattern)
{
    using enum QRegularExpression::PatternOption;
    return QRegularExpression(pattern, CaseInsensitiveOption | UseUnicodePropertiesOption).match(text).hasMatch();
}

/// `except` are keys whose English text only sounds like the thing.
void expectOneTerm(const Term& term, std::initializer_list<const char*> except = {})
{
    int uses = 0;
    for (const test::EnglishText& english : test::englishTexts()) {
        const QString key = english.keyString();
        const bool excepted =
            std::ranges::any_of(except, [&](const char* other) { return key == QLatin1String(other); });
        if (excepted || !names(english.textString(), term.in(AppLanguage::english)))
            continue;
        ++uses;
        for (const AppLanguage language : kAllAppLanguages) {
            const QString text = Translations::compiled().text(key, language);
            EXPECT_TRUE(names(text, term.in(language)))
                << key.toStdString() << ": " << text.toStdString() << " lacks " << term.in(language).toStdString();
        }
    }
    EXPECT_GT(uses, 0) << term.english;
}

}

TEST(Glossary, TheTwoVideosHaveOneNameEach)
{
    expectOneTerm({"above video$|above-water video", u"水上動画", u"水上视频", u"수상 영상",
                   u"(vídeo|vídeos) de superfície", u"vídeos? de superficie", u"vidéos? de surface",
                   u"Überwasser(video|-)", u"video di superficie"});
    expectOneTerm({"below video$|underwater video", u"水中動画", u"水下视频", u"수중 영상", u"subaquático",
                   u"subacuático", u"vidéo subaquatique|et subaquatique", u"Unterwasservideo", u"subacqueo"});
}

TEST(Glossary, ThePool)
{
    expectOneTerm({"lane rope", u"コースロープ", u"分道线", u"레인 로프", u"corda da raia", u"corchera", u"ligne d’eau",
                   u"Trennleine", u"separacorsia"});
    expectOneTerm({"waterline", u"水面ライン", u"水面线", u"수면선", u"linha d’água", u"línea de agua",
                   u"niveau de l’eau", u"Wasserlinie", u"linea d’acqua"});
    expectOneTerm({"water surface", u"水面", u"水面", u"수면", u"superfície da água", u"superficie del agua",
                   u"surface de l’eau", u"Wasseroberfläche", u"superficie dell’acqua"});
    expectOneTerm({"5m (line|mark)", u"5mライン", u"5 米线", u"5m 라인", u"linha dos 5.m", u"línea de 5.m",
                   u"repère 5.m", u"5-m-Linie", u"linea dei 5.m"});
    expectOneTerm(
        {"swimmer", u"泳者", u"泳者", u"선수", u"nadador", u"nadador", u"nageur", u"Schwimmer", u"nuotatore"});
    expectOneTerm({"start motion", u"スタート動作", u"出发动作", u"스타트 동작", u"movimento de saída",
                   u"movimiento de salida", u"mouvement de départ", u"Startbewegung", u"movimento di partenza"});
}

TEST(Glossary, TheTimeline)
{
    // What the reset of the range calls markers are its two ends; the markers stay.
    expectOneTerm(
        {"marker", u"マーカー", u"标记", u"마커", u"marcador", u"marcador", u"marqueur", u"marker", u"marcator"},
        {"Reset Trim Markers"});
    expectOneTerm({"playhead", u"再生ヘッド", u"播放头", u"재생 헤드", u"cursor", u"cabezal", u"tête de lecture",
                   u"Abspielkopf", u"testina"});
    expectOneTerm({"trim", u"トリミング", u"修剪", u"트리밍", u"cort", u"recort", u"découp", u"trimm", u"ritagli"});
    expectOneTerm({"knob|handle", u"つまみ", u"滑块", u"핸들", u"alça", u"tirador", u"poignée", u"Griff", u"maniglia"});
    expectOneTerm({"current position", u"現在位置", u"当前位置", u"현재 위치", u"posição atual", u"posición actual",
                   u"position actuelle", u"aktuelle Position|aktuellen Position", u"posizione attuale"});
    expectOneTerm({"\\brange\\b", u"範囲", u"范围", u"범위", u"trecho", u"tramo", u"plage", u"bereich", u"intervallo"});
    expectOneTerm({"\\bunlock\\b", u"ロック解除", u"解锁", u"잠금 해제", u"Destravar", u"Desbloquear", u"Déverrouiller",
                   u"Lösen", u"Sblocca"});
    expectOneTerm(
        {"\\block\\b", u"ロック", u"锁定", u"잠", u"trav", u"bloque|bloqu", u"verrouill", u"fixier", u"blocc"});
    expectOneTerm({"\\bframe\\b(?! rate)", u"フレーム", u"帧", u"프레임", u"quadro", u"fotograma", u"image", u"Bild",
                   u"fotogramm"});
}

TEST(Glossary, TheWork)
{
    expectOneTerm(
        {"export", u"書き出", u"导出", u"내보내|내보낼", u"export", u"export", u"export", u"export", u"esport"});
    expectOneTerm({"composition", u"合成", u"合成", u"합성", u"composição", u"composición", u"composition",
                   u"Komposition", u"composizione"});
    expectOneTerm({"adjust", u"調整", u"调整", u"조정", u"ajust", u"ajust", u"régl", u"anpass", u"regol"});
    expectOneTerm({"basic adjustments", u"基本調整", u"基本调整", u"기본 조정", u"ajustes básicos", u"ajustes básicos",
                   u"réglages de base", u"einfachen? (und erweiterte )?Anpassungen", u"regolazioni di base"});
    expectOneTerm({"advanced adjustments", u"詳細調整", u"高级调整", u"고급 조정", u"avançados", u"avanzados",
                   u"avancés", u"erweiterten?", u"avanzate"});
    expectOneTerm({"frame rate", u"フレームレート", u"帧率", u"프레임 레이트", u"taxas? de quadros",
                   u"frecuencias? de fotogramas", u"fréquences? d’images", u"Bildraten?",
                   u"frequen(za|ze) dei fotogrammi"});
    expectOneTerm({"aspect ratio", u"アスペクト比", u"画面比例", u"화면 비율", u"proporç(ão|ões)", u"proporci(ón|ones)",
                   u"formats? d’image", u"Seitenverhältnis", u"proporzioni"});
    expectOneTerm({"\\bclips?\\b", u"クリップ", u"片段", u"클립", u"clipe", u"clip", u"clip", u"clip", u"clip"});
    expectOneTerm({"zumeta mark", u"Zumetaマーク", u"Zumeta 水印", u"Zumeta 마크", u"marca Zumeta", u"marca Zumeta",
                   u"filigrane Zumeta", u"Zumeta-Wasserzeichen", u"filigrana Zumeta"});
    expectOneTerm({"\\bguide\\b", u"ガイド", u"引导", u"가이드", u"guia", u"guía", u"guide", u"Einführung", u"guida"});
    expectOneTerm({"highlighted", u"強調表示", u"高亮", u"강조된", u"destacad", u"resaltad", u"mise? en évidence",
                   u"hervorgehoben", u"evidenziat"});
    expectOneTerm({"media missing", u"動画が見つかりません", u"找不到视频", u"영상 없음", u"vídeo ausente",
                   u"falta el vídeo", u"vidéo manquante", u"video fehlt", u"video mancante"});
}

TEST(Glossary, NoSecondWordForAVideo)
{
    const std::pair<AppLanguage, const char16_t*> strangers[] = {
        {japanese, u"映像|ビデオ|ムービー"},
        {chinese, u"影片|录像|录影"},
        {korean, u"동영상|비디오|무비"},
        {portuguese, u"filme\\b|filmagem|gravação"},
        {spanish, u"\\bvideos?\\b|película|grabación"},
        {french, u"\\bfilms?\\b|séquence"},
        {german, u"\\bFilme?\\b|Aufnahme"},
        {italian, u"\\bfilmat[oi]\\b|ripresa"},
    };
    for (const auto& [language, pattern] : strangers) {
        for (const test::EnglishText& english : test::englishTexts()) {
            const QString text = Translations::compiled().text(english.keyString(), language);
            EXPECT_FALSE(names(text, QString::fromUtf16(pattern))) << text.toStdString();
        }
    }
}

TEST(Glossary, WhatReadsAlikeInEnglishReadsAlikeEverywhere)
{
    // One English text, two meanings: a verb here and a noun there, or a button and a title.
    const QStringList apart = {QStringLiteral("Zoom"), QStringLiteral("Export")};
    QHash<QString, QString> keyOfText;
    for (const test::EnglishText& english : test::englishTexts()) {
        const QString earlier = keyOfText.value(english.textString());
        keyOfText.insert(english.textString(), english.keyString());
        if (earlier.isEmpty() || apart.contains(english.textString()))
            continue;
        for (const AppLanguage language : kAllAppLanguages)
            EXPECT_EQ(Translations::compiled().text(earlier, language),
                      Translations::compiled().text(english.keyString(), language));
    }
}

}
