// SPDX-License-Identifier: GPL-3.0-or-later
// usage: drag-source X Y FILE...
//
// Stands for a file manager: a small window at this place of the screen, from which the files can be dragged away. Says
// "ready" once it can be seen, and how each drag has ended.
#include <QApplication>
#include <QDrag>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>
#include <cstdio>
#include <memory>

namespace {

class FileLabel final : public QLabel {
public:
    explicit FileLabel(QList<QUrl> urls)
        : QLabel(QStringLiteral("%1 files").arg(urls.size()))
        , m_urls(std::move(urls))
    {
        setAlignment(Qt::AlignCenter);
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!(event->buttons() & Qt::LeftButton) || m_isDragging)
            return;
        m_isDragging = true;
        auto dragged = std::make_unique<QMimeData>();
        dragged->setUrls(m_urls);
        auto drag = std::make_unique<QDrag>(this);
        drag->setMimeData(dragged.release());                               // the drag owns it
        const Qt::DropAction action = drag.release()->exec(Qt::CopyAction); // it deletes itself
        // Whoever took the files may still ask for them.
        QTimer::singleShot(500, this, [this] { m_isDragging = false; });
        std::puts(action == Qt::CopyAction ? "copied" : "refused");
        std::fflush(stdout);
    }
    void paintEvent(QPaintEvent* event) override
    {
        QLabel::paintEvent(event);
        if (!std::exchange(m_isSeen, true)) {
            std::puts("ready");
            std::fflush(stdout);
        }
    }

private:
    const QList<QUrl> m_urls;
    bool m_isDragging = false;
    bool m_isSeen = false;
};

}

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 4) {
        std::fputs("usage: drag-source X Y FILE...\n", stderr);
        return 2;
    }
    QList<QUrl> urls;
    for (const QString& file : words.mid(3))
        urls << QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath());
    FileLabel label(urls);
    label.setWindowFlags(Qt::X11BypassWindowManagerHint | Qt::FramelessWindowHint); // it stands where it was told to
    label.setGeometry(words[1].toInt(), words[2].toInt(), 120, 60);
    label.show();
    QTimer::singleShot(60000, &application, &QCoreApplication::quit); // longer than any test
    return QApplication::exec();
}
