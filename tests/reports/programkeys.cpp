// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/programkeys.h"

#include "reports/keyboard.h"
#include "reports/reportroot.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;
using platform::print::PreviewWindow;
using reports::LISTA;

namespace reporttest {

bool inClients(const std::function<void(climant&)>& work)
{
    bool came = false;
    onceActive<climant>([&](climant& window) {
        came = true;
        work(window);
        if (turnTo(window))
            window.unload();
    });
    pressKey(Qt::Key_A, Qt::AltModifier);
    pressKey(Qt::Key_F); // returns when the window has closed
    return came;
}

bool inRevision(const QString& zone, const std::function<void(LISTA&)>& work)
{
    bool left = false;
    onceActive<LISTA>([&](LISTA& window) {
        const QPointer<LISTA> standing = &window; // it deletes itself once it is left
        typeAnew(zone);
        if (tabTo(&control<QLineEdit>(window, "Text2")))
            typeAnew(zone);
        work(window);
        if (turnTo(window))
            pressKey(Qt::Key_S, Qt::AltModifier);
        left = QTest::qWaitFor([&standing] { return standing.isNull(); });
        if (!left)
            window.unload(); // never wait for ever
    });
    pressKey(Qt::Key_L, Qt::AltModifier);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Return); // returns when the window has closed
    return left;
}

PreviewWindow* openPreview()
{
    const QList<PreviewWindow*> before = previews();
    pressKey(Qt::Key_V, Qt::AltModifier);
    static_cast<void>(QTest::qWaitFor([&before] { return previews().size() > before.size(); }, kPatience));
    for (PreviewWindow* window : previews())
        if (!before.contains(window) && turnTo(*window))
            return window;
    return nullptr;
}

void exportTo(PreviewWindow& preview, const QString& file)
{
    if (!turnTo(preview))
        return;
    const auto* tool = preview.findChild<QAction*>(u"exportar"_s);
    if (!tabTo(preview.findChild<QToolBar*>()->widgetForAction(const_cast<QAction*>(tool)))) // NOLINT
        return;
    onceActive<QFileDialog>([&file](QFileDialog& dialog) {
        typeAnew(file);
        if (QApplication::activePopupWidget() != nullptr)
            pressKey(Qt::Key_Escape); // the names that it offers
        pressKey(Qt::Key_Return);
        if (dialog.isVisible())
            dialog.reject(); // never wait for ever
    });
    pressKey(Qt::Key_Space); // returns when the dialog has closed
    // The file takes its name when it is whole.
    static_cast<void>(QTest::qWaitFor([&file] { return QFile::exists(file); }, kPatience));
}

void unloadWindows()
{
    QList<QPointer<platform::Form>> forms;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* form = qobject_cast<platform::Form*>(window))
            forms.append(form);
    for (const QPointer<platform::Form>& form : forms)
        if (form)
            form->unload();
}

} // namespace reporttest
