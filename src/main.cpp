// SPDX-License-Identifier: GPL-3.0-or-later

// The program: the look, the message boxes, the windows that the commands show, and the main window, whose
// load is the start of the run.

#include "platform/window/appearance.h"
#include "platform/window/spanishtexts.h"
#include "shell/launch.h"
#include "shell/stmain.h"
#include "shell/unhandledfailure.h"
#include "shell/windows.h"

#include <QApplication>
#include <QIcon>

using namespace Qt::StringLiterals;

namespace {

QStringList argumentsOf(int count, char** values)
{
    QStringList arguments;
    for (int index = 0; index < count; ++index)
        arguments.append(QString::fromLocal8Bit(values[index]));
    return arguments;
}

} // namespace

int main(int argc, char* argv[])
{
    const QString commandLine = shell::commandLine(argumentsOf(argc, argv));
    // The whole command line is the program's own: the toolkit sees none of it.
    int toolkitArguments = 1;
    QApplication application(toolkitArguments, argv);
    QApplication::setApplicationName(u"Orvane"_s);
    QApplication::setDesktopFileName(u"io.github.orvane.Orvane"_s);
    QApplication::setWindowIcon(QIcon(u":/orvane.svg"_s));
    platform::installAppearance();
    platform::installSpanishTexts();
    platform::installMessageBox();
    shell::installUnhandledFailureBox();
    shell::installLookup();

    STMAIN window(commandLine, shell::windowLinks());
    window.load();
    return QApplication::exec();
}
