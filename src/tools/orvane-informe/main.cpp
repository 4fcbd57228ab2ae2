// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/orvane-informe/reporttool.h"

#include <QGuiApplication>
#include <QTextStream>

int main(int argc, char* argv[])
{
    // The tool draws on paper only, so it needs no screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return orvane::tools::runReportTool(QGuiApplication::arguments().mid(1), out, err);
}
