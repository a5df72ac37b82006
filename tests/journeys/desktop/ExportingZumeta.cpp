// SPDX-License-Identifier: GPL-3.0-or-later
// usage: exporting-zumeta ABOVE BELOW OUTPUT
//
// The application as it is started by everybody, which then begins to export these recordings in its biggest size, and
// says "exporting" once there is a file.
#include "shell/Program.h"
#include "shell/ZumetaApp.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <cstdio>
#include <memory>

namespace {

using namespace zumeta;

QFileDialog* fileDialog()
{
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const dialog = qobject_cast<QFileDialog*>(widget);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

/// Looks again and again for what the next stage needs.
class Exporting : public QObject {
public:
    Exporting(CompositorViewModel& session, QString output)
        : m_session(session)
        , m_output(std::move(output))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] { look(); });
        m_timer.start(20);
    }

private:
    void look()
    {
        switch (m_stage) {
        case 0:
            if (m_session.abovePlayerService().duration() <= 0 || m_session.belowPlayerService().duration() <= 0)
                return;
            m_session.setSelectedResolution(ExportResolutionType::uhd4k);
            m_session.exportVideo(false);
            break;
        case 1:
            if (!fileDialog())
                return;
            fileDialog()->findChild<QLineEdit*>()->setText(m_output);
            static_cast<QDialog*>(fileDialog())->accept();
            break;
        default:
            if (!m_session.isExporting() || !QFile::exists(m_output))
                return;
            std::puts("exporting");
            std::fflush(stdout);
            m_timer.stop();
        }
        ++m_stage;
    }

    CompositorViewModel& m_session;
    QString m_output;
    QTimer m_timer;
    int m_stage = 0;
};

}

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("Zumeta"));
    QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    std::unique_ptr<Exporting> exporting;
    return runProgram(application, [&](ZumetaApp& zumeta) {
        CompositorViewModel& session = zumeta.session();
        session.setCameraSelectionConfirmed(true);
        session.loadAboveVideo({FileUrl(words.value(1).toStdString())});
        session.loadBelowVideo({FileUrl(words.value(2).toStdString())});
        exporting = std::make_unique<Exporting>(session, words.value(3));
    });
}
