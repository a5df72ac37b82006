// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <QStringList>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class LanguageManager;

/// The texts for QML, which reads them through Words, and the choice of the language as a picker shows it: first the
/// device's own, then every language by its own name.
class Texts final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int revision READ revision NOTIFY languageChanged FINAL)
    Q_PROPERTY(QStringList languages READ languages NOTIFY languageChanged FINAL)
    Q_PROPERTY(int chosenLanguage READ chosenLanguage NOTIFY languageChanged FINAL)
public:
    explicit Texts(LanguageManager& languages, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static Texts* create(QQmlEngine* engine, QJSEngine*);

    /// Counts the changes of language; a binding that reads it follows them.
    int revision() const { return m_revision; }
    QStringList languages() const;
    int chosenLanguage() const; ///< an index into languages()

    Q_INVOKABLE QString localized(const QString& key) const;
    Q_INVOKABLE void chooseLanguage(int index);

Q_SIGNALS:
    void languageChanged();

private:
    LanguageManager& m_languages;
    int m_revision = 0;
};

}
