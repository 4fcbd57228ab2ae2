// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The client window over the six stores of company 00012 in a temporary data root, driven by keys and mouse.
// Rows go into the stores and come back out of them through the data access objects, never through the
// window.

#include "clients/climant.h"
#include "platform/core/value.h"
#include "platform/dao/dao.h"
#include "support/fixedclock.h"
#include "support/messagerecorder.h"
#include "support/processrecorder.h"
#include "support/tempdataroot.h"

#include <QStringList>
#include <QtTest>

#include <memory>

namespace platform {
class FlexGrid;
class TextBox;
} // namespace platform

namespace testsupport {

struct Cell
{
    QStringView column;
    platform::Value value;
};

class ClientFixture
{
public:
    /// The clock stands at 20/11/2026 09:15:30; the user is "ana".
    ClientFixture();
    ~ClientFixture();

    /// Shows the window and waits until it is active and has run the rule of its first focus.
    climant& open();
    void closeWindow();
    [[nodiscard]] climant& window() { return *m_window; }
    [[nodiscard]] bool isOpen() const { return m_window && m_window->isVisible(); }
    /// Brings the window back to the front, as closing a modal window over it does.
    void activate();

    template <typename T>
    [[nodiscard]] T* control(const QString& name) const
    {
        T* found = m_window->findChild<T*>(name);
        if (!found)
            qFatal("no control %s", qPrintable(name));
        return found;
    }
    [[nodiscard]] platform::TextBox* box(const QString& name) const;
    [[nodiscard]] platform::FlexGrid* grid(const QString& name) const;
    [[nodiscard]] QString text(const QString& name) const;
    [[nodiscard]] int tab() const;
    [[nodiscard]] QString focused() const; ///< object name of the control with the focus

    /// Brings up a page of the window by a click on its tab.
    void showPage(int page);
    /// Clicks a control (a box, button or picture), after bringing up the page that it is on.
    void click(const QString& name);
    /// Clicks an item of the side bar.
    void clickItem(const QString& key);
    /// Clicks a field and types over what it holds. The field keeps the focus.
    void type(const QString& name, const QString& text);
    /// A key in the control with the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Presses a key until the control with the focus bears a name (see `stop`). False when it doesn't come.
    [[nodiscard]] bool walkTo(const QString& name, Qt::Key key = Qt::Key_Tab);
    /// Name of the control with the focus; a row of tabs bears the name of its pages, an editor of a cell
    /// that of its grid.
    [[nodiscard]] static QString stop();
    /// Presses a key that opens the line menu, then keys in it. False when no menu came.
    [[nodiscard]] bool pressLineMenu(Qt::Key key, Qt::KeyboardModifiers modifiers,
                                     const QList<Qt::Key>& inMenu);
    /// Types a code in "Código" and leaves the field.
    void enterCode(const QString& code);

    /// Clicks a cell, so that the cursor stands there.
    void clickCell(const QString& gridName, int row, int col, Qt::MouseButton button = Qt::LeftButton);
    /// Types in a cell and leaves it with Enter.
    void typeCell(const QString& gridName, int row, int col, const QString& text);
    /// Clicks the tick of a cell.
    void tickCell(const QString& gridName, int row, int col);
    /// Presses the right button on a cell and chooses an item of the line menu by its object name.
    void chooseInLineMenu(const QString& gridName, int row, int col, const QString& item);
    [[nodiscard]] QString cell(const QString& gridName, int row, int col) const;
    [[nodiscard]] QStringList line(const QString& gridName, int row) const;

    /// What the lookup gives from now on, each time it is shown. A null text leaves `RESULTADOBUSQUEDA` as it
    /// is.
    void answerLookup(const QString& code) { m_answer = code; }
    /// Kinds asked of the lookup so far.
    [[nodiscard]] const QList<int>& lookups() const { return m_lookups; }
    /// Pointer of the window at each lookup.
    [[nodiscard]] const QList<int>& pointers() const { return m_pointers; }

    /// Adds a row through a recordset of its own.
    static void add(platform::dao::Database& store, const QString& table, std::initializer_list<Cell> cells);
    static void addClient(const QString& code, const QString& name = {});
    static void addShipping(const QString& code, const QString& address,
                            const platform::Value& active = QString());
    static void addBank(const QString& code, const QString& account);
    static void addTelephone(const QString& code, const QString& telephone,
                             const QString& company = QStringLiteral("00012"));
    static void addConcept(const QString& code, const QString& article, double line,
                           const QString& description = {});
    static void addConsultation(double number, const QString& client, const platform::Value& subject,
                                const platform::Value& state = QStringLiteral("01 Abierta"));
    /// Rows of a query, columns parted by "|", Null as "(null)".
    [[nodiscard]] static QStringList rows(const platform::dao::Database& store, const QString& sql);

    TempDataRoot root;
    FixedClock clock;
    MessageRecorder messages;
    ProcessRecorder processes;

private:
    void showPageOf(QWidget* control);
    void lookUp(QWidget* parent);

    std::unique_ptr<climant> m_window;
    QString m_answer;
    QList<int> m_lookups;
    QList<int> m_pointers;
};

/// Closes what the tests' stores hold and starts with the variables of a fresh run.
void startRun(const TempDataRoot& root);

} // namespace testsupport
