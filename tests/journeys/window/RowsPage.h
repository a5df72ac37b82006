// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "journeys/window/WindowJourney.h"
#include "platform/NotificationCenter.h"
#include "surfaces/controls/ValueRowModel.h"

namespace zumeta::test {

/// The numeric rows on a page of their own that can be scrolled, over the window's left: all of the eight, one with a
/// long label, and a menu.
class RowsPage : public WindowJourney {
protected:
    /// The key of a text that no table has, and so the text itself; it needs two lines.
    static constexpr char kLongLabel[] = "Senkrechte Verschiebung der Schwimmerin im Bild";

    RowsPage();
    ~RowsPage() override;
    void openPage(int step = 3);
    void closePage();

    CompositorViewModel& session() { return app().session(); }
    QQuickItem* page() { return m_page.get(); }
    /// What is on the page: a row by its key, and its "KEY field", "KEY minus", "KEY plus" and "KEY track".
    QQuickItem* part(const std::string& name);
    QQuickItem* field(const std::string& key) { return part(key + " field"); }
    std::string text(const std::string& key) { return field(key)->property("text").toString().toStdString(); }
    std::string selection(const std::string& key);
    /// By Tab, as it were: all of its text is selected.
    void focus(const std::string& key);
    void type(const char* characters);
    void type(const std::string& key, const char* characters);
    void compose(const std::string& key, const char16_t* committed, const char16_t* composed);
    int focusCount();
    void post(const QString& notification, const QVariantMap& userInfo = {});

private:
    std::unique_ptr<ValueRowModel> m_longRow;
    std::unique_ptr<QQuickItem> m_page;
};

}
