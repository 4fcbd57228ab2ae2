// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/orvane-informe/reporttool.h"

#include <QGuiApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    // The tool draws on paper only, so it needs no screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the toolkit remarks about its surroundings is no line of this tool.
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
        qputenv("QT_LOGGING_RULES", "default.warning=false");
    const QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return orvane::tools::runReportTool(QGuiApplication::arguments().mid(1), out, err);
}
