// SPDX-License-Identifier: GPL-3.0-or-later
// What the user reads about an export, in every language.
#include "languages/Translations.h"
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::SizeIs;

struct ExportTexts {
    AppLanguage language;
    QString existsTitle;
    QString existsMessage;
    QString replace;
    QString cancel;
    QString noRoomTitle;
    QString noRoomMessage; ///< 387.6 MB are needed and 12.5 MB are there
    QString ok;
    QString exporting;
    QString complete;
    QString completeTitle;
    QString failed; ///< because the disk is full
    QString failedTitle;
    QString cancelled;
};

#define U(text) QString::fromUtf16(u##text)

// Written out whole: a wrong placeholder, order of buttons or choice of key shows here.
const ExportTexts kTexts[] = {
    {AppLanguage::english, U("File Already Exists"),
     U("A file with the same name already exists. Do you want to replace it?"), U("Replace"), U("Cancel"),
     U("Not Enough Storage"),
     U("Exporting needs about 387.6 MB of free space. 12.5 MB is currently available. Free up storage and try again."),
     U("OK"), U("Exporting..."), U("Export complete!"), U("Export Complete"),
     U("Export failed: Asset writer failed: No space left on device"), U("Export Failed"),
     U("Export failed: Export was cancelled")},
    {AppLanguage::japanese, U("同じ名前のファイルがあります"),
     U("同じ名前のファイルがすでにあります。置き換えますか？"), U("置き換える"), U("キャンセル"),
     U("空き容量が足りません"),
     U("書き出しには約387.6 MBの空き容量が必要です。現在の空き容量は12.5 "
       "MBです。空き容量を増やしてから、もう一度お試しください。"),
     U("OK"), U("書き出し中…"), U("書き出しが完了しました！"), U("書き出し完了"),
     U("書き出しに失敗しました：Asset writer failed: No space left on device"), U("書き出し失敗"),
     U("書き出しに失敗しました：Export was cancelled")},
    {AppLanguage::chinese, U("文件已存在"), U("已存在同名文件。要替换吗？"), U("替换"), U("取消"), U("存储空间不足"),
     U("导出约需 387.6 MB 可用空间，目前可用 12.5 MB。请释放存储空间后重试。"), U("确定"), U("正在导出…"),
     U("导出完成！"), U("导出完成"), U("导出失败：Asset writer failed: No space left on device"), U("导出失败"),
     U("导出失败：Export was cancelled")},
    {AppLanguage::korean, U("파일이 이미 있음"), U("같은 이름의 파일이 이미 있습니다. 바꾸시겠습니까?"), U("바꾸기"),
     U("취소"), U("저장 공간 부족"),
     U("내보내려면 약 387.6 MB의 여유 공간이 필요합니다. 현재 12.5 MB 사용 가능합니다. 저장 공간을 확보한 후 다시 "
       "시도하세요."),
     U("확인"), U("내보내는 중…"), U("내보내기 완료!"), U("내보내기 완료"),
     U("내보내기 실패: Asset writer failed: No space left on device"), U("내보내기 실패"),
     U("내보내기 실패: Export was cancelled")},
    {AppLanguage::portuguese, U("O arquivo já existe"),
     U("Já existe um arquivo com o mesmo nome. Deseja substituí-lo?"), U("Substituir"), U("Cancelar"),
     U("Espaço insuficiente"),
     U("A exportação precisa de cerca de 387.6 MB de espaço livre. Há 12.5 MB disponíveis no momento. Libere espaço e "
       "tente de novo."),
     U("OK"), U("Exportando…"), U("Exportação concluída!"), U("Exportação concluída"),
     U("Falha na exportação: Asset writer failed: No space left on device"), U("Falha na exportação"),
     U("Falha na exportação: Export was cancelled")},
    {AppLanguage::spanish, U("El archivo ya existe"),
     U("Ya existe un archivo con el mismo nombre. ¿Quieres reemplazarlo?"), U("Reemplazar"), U("Cancelar"),
     U("Espacio insuficiente"),
     U("La exportación necesita unos 387.6 MB de espacio libre. Ahora hay 12.5 MB disponibles. Libera espacio e "
       "inténtalo de nuevo."),
     U("Aceptar"), U("Exportando…"), U("¡Exportación completada!"), U("Exportación completada"),
     U("Error al exportar: Asset writer failed: No space left on device"), U("Error al exportar"),
     U("Error al exportar: Export was cancelled")},
    {AppLanguage::french, U("Le fichier existe déjà"),
     U("Un fichier du même nom existe déjà. Voulez-vous le remplacer\u00A0?"), U("Remplacer"), U("Annuler"),
     U("Espace insuffisant"),
     U("L’exportation nécessite environ 387.6 MB d’espace libre. Espace actuellement disponible\u00A0: 12.5 MB. "
       "Libérez de l’espace et réessayez."),
     U("OK"), U("Exportation…"), U("Exportation terminée\u00A0!"), U("Exportation terminée"),
     U("Échec de l’exportation\u00A0: Asset writer failed: No space left on device"), U("Échec de l’exportation"),
     U("Échec de l’exportation\u00A0: Export was cancelled")},
    {AppLanguage::german, U("Datei existiert bereits"),
     U("Eine Datei mit diesem Namen existiert bereits. Soll sie ersetzt werden?"), U("Ersetzen"), U("Abbrechen"),
     U("Nicht genügend Speicherplatz"),
     U("Der Export benötigt etwa 387.6 MB freien Speicherplatz. Derzeit sind 12.5 MB verfügbar. Bitte Speicherplatz "
       "freigeben und erneut versuchen."),
     U("OK"), U("Export läuft…"), U("Export abgeschlossen!"), U("Export abgeschlossen"),
     U("Export fehlgeschlagen: Asset writer failed: No space left on device"), U("Export fehlgeschlagen"),
     U("Export fehlgeschlagen: Export was cancelled")},
    {AppLanguage::italian, U("Il file esiste già"), U("Esiste già un file con lo stesso nome. Vuoi sostituirlo?"),
     U("Sostituisci"), U("Annulla"), U("Spazio insufficiente"),
     U("L’esportazione richiede circa 387.6 MB di spazio libero. Al momento sono disponibili 12.5 MB. Libera spazio e "
       "riprova."),
     U("OK"), U("Esportazione…"), U("Esportazione completata!"), U("Esportazione completata"),
     U("Esportazione non riuscita: Asset writer failed: No space left on device"), U("Esportazione non riuscita"),
     U("Esportazione non riuscita: Export was cancelled")},
};

#undef U

struct ExportTextsIn : SessionTest, testing::WithParamInterface<ExportTexts> {
    const ExportTexts& expected = GetParam();

    ExportTextsIn()
    {
        enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        dialogs.delay = 0;
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
        localized = [language = expected.language](const QString& key) {
            return Translations::compiled().text(key, language);
        };
    }
    void runExport()
    {
        session->exportVideo(false);
        advance(11);
    }
    void expectTold(const QString& status, const QString& title, const QString& message)
    {
        EXPECT_EQ(session->syncStatusMessage(), status);
        ASSERT_TRUE(session->exportNotification());
        EXPECT_EQ(session->exportNotification()->title, title);
        EXPECT_EQ(session->exportNotification()->message, message);
    }
};

TEST_P(ExportTextsIn, TheQuestionAboutAFileThatIsThere)
{
    dialogs.savePlace = FileUrl("/");
    dialogs.answer = 1;
    runExport();
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(dialogs.alerts.front().title, expected.existsTitle);
    EXPECT_EQ(dialogs.alerts.front().message, expected.existsMessage);
    EXPECT_THAT(dialogs.alerts.front().buttons, ElementsAre(expected.replace, expected.cancel));
}

TEST_P(ExportTextsIn, TheRefusalForWantOfRoom)
{
    exportScript.storage = StorageRequirement{119'133'000, 387'568'456, 12'500'000};
    runExport();
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(dialogs.alerts.front().title, expected.noRoomTitle);
    EXPECT_EQ(dialogs.alerts.front().message, expected.noRoomMessage);
    EXPECT_THAT(dialogs.alerts.front().buttons, ElementsAre(expected.ok));
}

TEST_P(ExportTextsIn, AMovieThatIsDone)
{
    runExport();
    expectTold(expected.complete, expected.completeTitle, QStringLiteral("swim.mp4"));
    EXPECT_THAT(sleepInhibitor.reasons, ElementsAre(expected.exporting));
}

TEST_P(ExportTextsIn, AFailureWithTheErrorsOwnEnglishWords)
{
    exportScript.error.emplace(ExportError::Case::assetWriterFailed, QStringLiteral("No space left on device"));
    runExport();
    expectTold(expected.failed, expected.failedTitle, QStringLiteral("Asset writer failed: No space left on device"));
}

TEST_P(ExportTextsIn, ACancel)
{
    session->exportVideo(false);
    advance(2);
    session->cancelExport();
    advance(1);
    expectTold(expected.cancelled, expected.failedTitle, QStringLiteral("Export was cancelled"));
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, ExportTextsIn, testing::ValuesIn(kTexts),
                         [](const auto& texts) { return localeIdentifier(texts.param.language).toStdString(); });

}
}
