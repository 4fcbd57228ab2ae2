// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Stores with the rows that a test gives, open as in a run, and the real lookup window over them.

#include "lookup/lisemwindow.h"
#include "platform/storage/storage.h"
#include "platform/window/combolist.h"
#include "platform/window/flexgrid.h"
#include "platform/window/textbox.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace lookuptest {

/// Columns of a row in the order of `givenRows`' `columns`; a null `QString` (not an empty one) is a Null.
using Rows = QList<QStringList>;

class LookupFixture
{
public:
    LookupFixture();
    ~LookupFixture();
    LookupFixture(const LookupFixture&) = delete;
    LookupFixture& operator=(const LookupFixture&) = delete;

    /// Code, name, town, and address if there is a fourth.
    void givenClients(const Rows& rows);
    /// Code and description.
    void givenZones(const Rows& rows);
    void givenTypes(const Rows& rows);
    /// Code, description and family.
    void givenArticles(const Rows& rows);

    /// Shows the window for a kind and waits until it has the keyboard.
    LISEM& open(double kind);
    /// The window that `open` made; null once it is gone.
    [[nodiscard]] LISEM* window() const { return m_window.get(); }

    template <typename Control>
    [[nodiscard]] Control& control(const char* name) const
    {
        return *m_window->findChild<Control*>(QString::fromLatin1(name));
    }
    [[nodiscard]] platform::FlexGrid& busi() const { return control<platform::FlexGrid>("busi"); }
    [[nodiscard]] platform::TextBox& box() const { return control<platform::TextBox>("Text1"); }
    [[nodiscard]] QString caption() const { return control<QLabel>("BAJO").text(); }
    /// Texts of a column below the heading.
    [[nodiscard]] QStringList column(int col) const;
    [[nodiscard]] QStringList headings() const;

    /// Types in the box, and presses Enter.
    void type(const QString& text);
    void search(const QString& text);
    void press(QWidget& widget, Qt::Key key);
    void doubleClickRow(int row);

    [[nodiscard]] QString storePath(const QString& file) const;

private:
    struct StoreRows
    {
        QString table;
        QStringList columns;
        Rows rows;
    };
    void makeStore(const QString& file, const QList<platform::storage::TableDefinition>& tables,
                   const StoreRows& content);

    QTemporaryDir m_folder;
    std::unique_ptr<LISEM> m_window;
};

} // namespace lookuptest
