// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/MenuModel.h"

#include "platform/BundleInfo.h"
#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"
#include "surfaces/window/CheckForUpdatesViewModel.h"

#include <QGuiApplication>
#include <memory>
#include <utility>

namespace zumeta {

namespace {

std::vector<const MenuItem*> itemsWithKeys(const std::vector<Menu>& menus)
{
    std::vector<const MenuItem*> found;
    for (const Menu& menu : menus) {
        for (const MenuItem& item : menu.items) {
            if (item.key == MenuKey::isRegistered)
                found.push_back(&item);
        }
    }
    return found;
}

}

MenuModel::MenuModel(SurfaceContext& context, QObject* parent)
    : QAbstractListModel(parent)
    , m_context(context)
    , m_menus(appMenus(context.updates() ? UpdateCheck::isConfigured : UpdateCheck::isNotConfigured))
{
    connect(&context.session(), &CompositorViewModel::changed, this, &MenuModel::refresh);
    connect(&context.modality(), &ModalState::changed, this, &MenuModel::refresh);
    if (context.updates())
        connect(context.updates(), &CheckForUpdatesViewModel::canCheckForUpdatesChanged, this, &MenuModel::refresh);
}

MenuModel* MenuModel::create(QQmlEngine* engine, QJSEngine*)
{
    return std::make_unique<MenuModel>(SurfaceContext::of(*engine)).release(); // the engine takes it over
}

QStringList MenuModel::titleKeys() const
{
    QStringList keys;
    for (const Menu& menu : m_menus)
        keys.push_back(menu.titleKey);
    return keys;
}

QStringList MenuModel::shortcuts() const
{
    QStringList shortcuts;
    for (const MenuItem* const item : itemsWithKeys(m_menus))
        shortcuts.push_back(item->shortcut);
    return shortcuts;
}

int MenuModel::rowCount(const QModelIndex&) const
{
    return int(m_lines.size());
}

QVariant MenuModel::data(const QModelIndex& index, int role) const
{
    const MenuItem& item = m_menus[size_t(m_shownMenu)].items[size_t(index.row())];
    switch (role) {
    case TitleKeyRole:
        return item.titleKey;
    case ShortcutRole:
        return item.shortcut;
    case IsDividerRole:
        return !item.command.has_value();
    case IsEnabledRole:
        return m_lines[size_t(index.row())] == MenuLine::enabled;
    default:
        return {};
    }
}

QHash<int, QByteArray> MenuModel::roleNames() const
{
    return {{TitleKeyRole, "titleKey"},
            {ShortcutRole, "shortcut"},
            {IsDividerRole, "isDivider"},
            {IsEnabledRole, "isEnabled"}};
}

void MenuModel::pressTitle(int menu)
{
    if (menu == m_openMenu)
        close();
    else
        open(menu);
}

void MenuModel::hoverTitle(int menu)
{
    if (isOpen() && menu != m_openMenu)
        open(menu);
}

void MenuModel::openFirstMenu()
{
    open(0);
    if (isOpen())
        moveToFirstRow();
}

void MenuModel::moveToMenu(int direction)
{
    if (!isOpen())
        return;
    const int count = int(m_menus.size());
    open((m_openMenu + direction + count) % count);
    moveToFirstRow();
}

void MenuModel::open(int menu)
{
    if (!m_context.modality().enablesMenuItems())
        return;
    // Once a menu is open, it has the focus and not the field.
    if (!isOpen())
        m_edited = EditedField(QGuiApplication::focusObject());
    beginResetModel();
    m_shownMenu = menu;
    m_lines = lines();
    endResetModel();
    setCurrentRow(-1);
    m_pointer.reset();
    m_openMenu = menu;
    Q_EMIT openMenuChanged();
}

void MenuModel::close()
{
    if (std::exchange(m_openMenu, -1) >= 0)
        Q_EMIT openMenuChanged();
}

void MenuModel::hoverRow(int row, QPointF place)
{
    const std::optional<QPointF> before = std::exchange(m_pointer, place);
    if (before && *before != place)
        chooseIfItActs(row);
}

void MenuModel::leaveRow(int row)
{
    if (row == m_currentRow)
        setCurrentRow(-1);
}

void MenuModel::chooseIfItActs(int row)
{
    const bool canBeChosen = row >= 0 && row < rowCount() && m_lines[size_t(row)] == MenuLine::enabled;
    setCurrentRow(canBeChosen ? row : -1);
}

void MenuModel::moveToRow(int direction)
{
    setCurrentRow(nextLine(m_lines, m_currentRow, direction));
}

void MenuModel::moveToFirstRow()
{
    setCurrentRow(nextLine(m_lines, -1, 1));
}

void MenuModel::moveToLastRow()
{
    setCurrentRow(nextLine(m_lines, -1, -1));
}

void MenuModel::setCurrentRow(int row)
{
    if (std::exchange(m_currentRow, row) != row)
        Q_EMIT currentRowChanged();
}

void MenuModel::triggerRow(int row)
{
    if (!isOpen() || row < 0 || row >= rowCount() || m_lines[size_t(row)] != MenuLine::enabled)
        return;
    const MenuCommand command = *m_menus[size_t(m_shownMenu)].items[size_t(row)].command;
    close();
    perform(command);
}

bool MenuModel::pressKey(int key)
{
    switch (key) {
    case Qt::Key_Home:
        moveToFirstRow();
        return true;
    case Qt::Key_End:
        moveToLastRow();
        return true;
    case Qt::Key_F10:
        close();
        return true;
    default:
        return false;
    }
}

void MenuModel::triggerShortcut(int shortcut)
{
    const std::vector<const MenuItem*> items = itemsWithKeys(m_menus);
    m_edited = EditedField(QGuiApplication::focusObject());
    if (shortcut >= 0 && shortcut < int(items.size()) && isEnabled(*items[size_t(shortcut)]->command, facts()))
        perform(*items[size_t(shortcut)]->command);
}

void MenuModel::closeAbout()
{
    if (std::exchange(m_isAboutShown, false))
        Q_EMIT isAboutShownChanged();
}

void MenuModel::refresh()
{
    if (!isOpen())
        return;
    if (!m_context.modality().enablesMenuItems()) {
        close();
        return;
    }
    if (std::vector<MenuLine> now = lines(); now != m_lines) {
        m_lines = std::move(now);
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {IsEnabledRole});
        chooseIfItActs(m_currentRow);
    }
}

std::vector<MenuLine> MenuModel::lines() const
{
    const MenuFacts now = facts();
    std::vector<MenuLine> lines;
    for (const MenuItem& item : m_menus[size_t(m_shownMenu)].items) {
        lines.push_back(!item.command                   ? MenuLine::divider
                        : isEnabled(*item.command, now) ? MenuLine::enabled
                                                        : MenuLine::disabled);
    }
    return lines;
}

}
