// SPDX-License-Identifier: GPL-3.0-or-later
// The author's guide and the schema, against what the reader takes.
#include "platform/print/definition/read_xml.h"
#include "platform/print/formula/functions.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace platform::print;

class GuideTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyStepOfTheExampleIsTaken();
    void everyFunctionIsTold();
    void everyElementOfTheSchemaIsTold();
    void schemaTakesEveryReport_data();
    void schemaTakesEveryReport();
};

namespace {

QString contentOf(const QString& path)
{
    QFile file(QString::fromUtf8(ORVANE_SOURCE_DIR) + u'/' + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString guide()
{
    return contentOf(u"docs/reports.md"_s);
}

QStringList matches(const QString& text, const QString& pattern)
{
    QStringList found;
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    for (const QRegularExpressionMatch& match : expression.globalMatch(text))
        found += match.captured(1);
    return found;
}

} // namespace

/// The first step is a whole report, each one after it goes in before the end.
void GuideTest::everyStepOfTheExampleIsTaken()
{
    const QStringList steps = matches(guide(), u"```xml\n(.*?)```"_s);
    QCOMPARE(steps.size(), 8);
    QString report = steps.first();
    for (qsizetype i = 0; i < steps.size(); ++i) {
        if (i > 0)
            report.replace(u"</informe>"_s, steps[i] + u"</informe>"_s);

        const ReadReport read = readReport(report.toUtf8());

        QVERIFY2(read.report,
                 read.faults.empty() ? "" : qPrintable(describe(u"step"_s, read.faults.front())));
    }
}

void GuideTest::everyFunctionIsTold()
{
    const QString text = guide();
    for (const auto& table :
         {formula::textFunctions(), formula::numberFunctions(), formula::dateFunctions()}) {
        for (const formula::Function& function : table) {
            const QRegularExpression word(u"`%1\\b"_s.arg(function.name));
            QVERIFY2(text.contains(word), function.name.data());
        }
    }
}

void GuideTest::everyElementOfTheSchemaIsTold()
{
    const QString text = guide();
    const QString schema = contentOf(u"reports/informe.xsd"_s);
    for (const QString& name : matches(schema, u"<xs:element name=\"([^\"]+)\""_s))
        QVERIFY2(text.contains(u"`%1`"_s.arg(name)), qPrintable(name));
    for (const QString& name : matches(schema, u"<xs:attribute name=\"([^\"]+)\""_s))
        QVERIFY2(text.contains(QRegularExpression(u"[ *]%1\\b"_s.arg(name))), qPrintable(name));
}

void GuideTest::schemaTakesEveryReport_data()
{
    QTest::addColumn<QString>("file");
    for (const char* name : {"reports/clientes.rpt", "reports/clientestipo.rpt", "reports/conservacion.rpt",
                             "reports/consultatec.rpt", "tests/platform/print/reports/todo.rpt",
                             "tests/platform/print/reports/dos-subinformes.rpt"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void GuideTest::schemaTakesEveryReport()
{
    QFETCH(const QString, file);
    const QString source = QString::fromUtf8(ORVANE_SOURCE_DIR) + u'/';
    QProcess lint;

    lint.start(u"xmllint"_s, {u"--noout"_s, u"--schema"_s, source + u"reports/informe.xsd"_s, source + file});

    QVERIFY(lint.waitForFinished());
    QVERIFY2(lint.exitCode() == 0, lint.readAllStandardError().constData());
}

QTEST_GUILESS_MAIN(GuideTest)
#include "tst_guide.moc"
