// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/window/AppMenus.h"
#include "surfaces/window/EditedField.h"

#include <QAbstractListModel>
#include <QPointF>
#include <qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace zumeta {
class SurfaceContext;

/// The menu bar: which menu is open, which of its lines is chosen, and what the items do. Its rows are the lines of the
/// open menu. Everything acts on the active window.
class MenuModel final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QStringList titleKeys READ titleKeys CONSTANT FINAL)
    /// The keys that are the menus' own; see triggerShortcut().
    Q_PROPERTY(QStringList shortcuts READ shortcuts CONSTANT FINAL)
    Q_PROPERTY(int openMenu READ openMenu NOTIFY openMenuChanged FINAL) ///< -1: none
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openMenuChanged FINAL)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged FINAL) ///< -1: none
    Q_PROPERTY(bool isAboutShown READ isAboutShown NOTIFY isAboutShownChanged FINAL)
public:
    enum Role { TitleKeyRole = Qt::UserRole, ShortcutRole, IsDividerRole, IsEnabledRole };

    explicit MenuModel(SurfaceContext& context, QObject* parent = nullptr);
    /// The engine's own; see SurfaceContext.
    static MenuModel* create(QQmlEngine* engine, QJSEngine*);

    QStringList titleKeys() const;
    QStringList shortcuts() const;
    int openMenu() const { return m_openMenu; }
    bool isOpen() const { return m_openMenu >= 0; }
    int currentRow() const { return m_currentRow; }
    bool isAboutShown() const { return m_isAboutShown; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // The bar.
    Q_INVOKABLE void pressTitle(int menu);
    /// The pointer leads from an open menu to the next.
    Q_INVOKABLE void hoverTitle(int menu);
    /// As the keyboard does it: with its first line chosen.
    Q_INVOKABLE void openFirstMenu();
    Q_INVOKABLE void moveToMenu(int direction);
    Q_INVOKABLE void close();

    // The open menu.
    /// The pointer moves over a line, at this place of the window. One that rests where a menu opens chooses nothing.
    Q_INVOKABLE void hoverRow(int row, QPointF place);
    Q_INVOKABLE void leaveRow(int row);
    Q_INVOKABLE void moveToRow(int direction);
    void moveToFirstRow();
    void moveToLastRow();
    Q_INVOKABLE void triggerRow(int row);
    Q_INVOKABLE void triggerCurrentRow() { triggerRow(m_currentRow); }

    /// Home and End, and F10 that closes what it has opened. Whether the key was one of these.
    Q_INVOKABLE bool pressKey(int key);

    /// By the place in shortcuts().
    Q_INVOKABLE void triggerShortcut(int shortcut);
    Q_INVOKABLE void closeAbout();

Q_SIGNALS:
    void openMenuChanged();
    void currentRowChanged();
    void isAboutShownChanged();

private:
    void open(int menu);
    void setCurrentRow(int row);
    void chooseIfItActs(int row);
    /// Follows what happens behind the open menu.
    void refresh();
    MenuFacts facts() const;
    std::vector<MenuLine> lines() const;
    void perform(MenuCommand command);
    void performOnWindow(MenuCommand command);
    void performOnPlayback(MenuCommand command);

    SurfaceContext& m_context;
    std::vector<Menu> m_menus;
    int m_openMenu = -1;
    int m_shownMenu = 0; ///< the one that is open, or was open last
    int m_currentRow = -1;
    std::optional<QPointF> m_pointer; ///< over the open menu
    std::vector<MenuLine> m_lines;    ///< of the shown menu, as they were told
    EditedField m_edited;
    bool m_isAboutShown = false;
};

}
