// SPDX-License-Identifier: GPL-3.0-or-later

// The form files keep to the design language: distances from the scale, no colours, no sizes of type, no
// style sheets, no controls at places of their own. The sources outside of the window library name no colour
// either.

#include "looks/shown.h"
#include "platform/window/spacing.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QSet<int> kDistances{0, platform::kTight, platform::kGap, platform::kInset, platform::kColumnGap};
const QSet<QString> kDistanceNames{u"spacing"_s,     u"horizontalSpacing"_s, u"verticalSpacing"_s,
                                   u"leftMargin"_s,  u"topMargin"_s,         u"rightMargin"_s,
                                   u"bottomMargin"_s};

QStringList filesOf(const QString& folder, const QStringList& patterns)
{
    QStringList files;
    for (QDirIterator all(QStringLiteral(ORVANE_SOURCES) + folder, patterns, QDir::Files,
                          QDirIterator::Subdirectories);
         all.hasNext();)
        files += all.next();
    return files;
}

QString contentsOf(const QString& file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? QString::fromUtf8(source.readAll()) : QString();
}

QStringList oddDistances(const QString& file)
{
    QStringList faults;
    QXmlStreamReader form(contentsOf(file));
    QString property;
    while (!form.atEnd()) {
        if (form.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (form.name() == u"property")
            property = form.attributes().value("name"_L1).toString();
        else if (form.name() == u"number" && kDistanceNames.contains(property)) {
            const QString number = form.readElementText();
            if (!kDistances.contains(number.toInt()))
                faults += u"%1: %2 is %3"_s.arg(QFileInfo(file).fileName(), property, number);
        }
    }
    return faults;
}

QStringList matches(const QString& file, const QString& pattern)
{
    QStringList found;
    for (const QRegularExpressionMatch& match : QRegularExpression(pattern).globalMatch(contentsOf(file)))
        found += QFileInfo(file).fileName() + u": "_s + match.captured();
    return found;
}

} // namespace

class FormFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void distancesComeFromTheScale();
    void looksAreLeftToTheStyle();
    void controlsStandInLayouts();
    void sourcesNameNoColour();
};

void FormFilesTest::distancesComeFromTheScale()
{
    QStringList faults;
    for (const QString& form : filesOf({}, {u"*.ui"_s}))
        faults += oddDistances(form);
    QVERIFY(looks::isSound(faults));
}

void FormFilesTest::looksAreLeftToTheStyle()
{
    QStringList faults;
    for (const QString& form : filesOf({}, {u"*.ui"_s}))
        faults += matches(form, u"name=\"(styleSheet|palette)\"|<(color|pointsize|family)\\b"_s);
    QVERIFY(looks::isSound(faults));
}

void FormFilesTest::controlsStandInLayouts()
{
    QStringList faults;
    for (const QString& form : filesOf({}, {u"*.ui"_s})) {
        // The one of the window itself is the size that it opens with.
        const QStringList places = matches(form, u"name=\"geometry\""_s);
        faults += places.mid(1);
    }
    QVERIFY(looks::isSound(faults));
}

void FormFilesTest::sourcesNameNoColour()
{
    QStringList faults;
    for (const QString& folder : {u"/shell"_s, u"/clients"_s, u"/assistance"_s, u"/lookup"_s, u"/reports"_s})
        for (const QString& source : filesOf(folder, {u"*.cpp"_s, u"*.h"_s}))
            faults += matches(source,
                              u"QColor|QPalette|setStyleSheet|setPointSize|setPixelSize|Qt::(white|black)"_s);
    QVERIFY(looks::isSound(faults));
}

QTEST_GUILESS_MAIN(FormFilesTest)
#include "tst_formfiles.moc"
