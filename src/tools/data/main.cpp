// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/data/commandline.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return tools::runDataTool(QCoreApplication::arguments().mid(1), out, err);
}
