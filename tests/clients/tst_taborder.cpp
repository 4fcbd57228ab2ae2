// SPDX-License-Identifier: GPL-3.0-or-later
#include "clients/clientfixture.h"

#include <optional>

using namespace Qt::StringLiterals;
using testsupport::ClientFixture;

namespace {

/// The text boxes of the head and of the first page, in the order of the client's data.
const QStringList kFields{u"Text49"_s, u"Text51"_s, u"Text8"_s,  u"Text9"_s,  u"Text4"_s,  u"Text5"_s,
                          u"Text6"_s,  u"Text1"_s,  u"Text2"_s,  u"Text7"_s,  u"Text40"_s, u"Text20"_s,
                          u"Text3"_s,  u"Text21"_s, u"Text25"_s, u"Text27"_s, u"Text26"_s};

constexpr int kMostPresses = 80;

} // namespace

class TabOrderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        f.emplace();
        f->addClient(u"0000000001"_s, u"UNO"_s);
        f->open();
        f->enterCode(u"1"_s);
        f->click(u"Text51"_s);
    }
    void cleanup() { f.reset(); }

    void tabWalksTheFieldsInTheirOrder();
    void enterWalksTheFieldsInTheirOrder();
    void everyFieldOfTheFirstPageHasANameForScreenReaders();

private:
    /// Names of the fields that get the focus, from "Nombre" on to the last one of the page.
    QStringList fieldsMetBy(Qt::Key key);
    std::optional<ClientFixture> f;
};

QStringList TabOrderTest::fieldsMetBy(Qt::Key key)
{
    QStringList met{u"Text49"_s, f->focused()};
    for (int presses = 0; presses < kMostPresses && met.last() != kFields.last(); ++presses) {
        f->press(key);
        QCoreApplication::processEvents();
        if (kFields.contains(f->focused()) && met.last() != f->focused())
            met.append(f->focused());
    }
    return met;
}

void TabOrderTest::tabWalksTheFieldsInTheirOrder()
{
    QCOMPARE(fieldsMetBy(Qt::Key_Tab), kFields);
}

void TabOrderTest::enterWalksTheFieldsInTheirOrder()
{
    // Enter moves on from text boxes only: on the way stand the pictures that open the lookups.
    f->press(Qt::Key_Return);
    QTRY_COMPARE(f->focused(), u"Text8"_s);
    f->press(Qt::Key_Return);
    QTRY_COMPARE(f->focused(), u"Text9"_s);
    f->press(Qt::Key_Return);
    QTRY_COMPARE(f->focused(), u"Text4"_s);
}

void TabOrderTest::everyFieldOfTheFirstPageHasANameForScreenReaders()
{
    for (const QString& name : kFields)
        QVERIFY2(!f->control<QWidget>(name)->accessibleName().isEmpty(), qPrintable(name));
}

QTEST_MAIN(TabOrderTest)
#include "tst_taborder.moc"
