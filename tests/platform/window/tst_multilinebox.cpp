// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/window/multilinebox.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using platform::MultiLineBox;

class MultiLineBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineEndsAreCrLfAtTheSeam_data();
    void lineEndsAreCrLfAtTheSeam();
    void enterTypesALineEnd();
    void tabMovesOn();
    void settingTheSameTextRaisesNothing();
    void settingAnotherTextRaisesChange();
    void focusIsReported();
};

void MultiLineBoxTest::lineEndsAreCrLfAtTheSeam_data()
{
    QTest::addColumn<QString>("set");

    QTest::newRow("CR LF") << u"uno\r\ndos"_s;
    QTest::newRow("LF") << u"uno\ndos"_s;
    QTest::newRow("CR") << u"uno\rdos"_s;
}

void MultiLineBoxTest::lineEndsAreCrLfAtTheSeam()
{
    QFETCH(QString, set);
    MultiLineBox box;

    box.setText(set);

    QCOMPARE(box.text(), u"uno\r\ndos"_s);
    QCOMPARE(box.blockCount(), 2);
}

void MultiLineBoxTest::enterTypesALineEnd()
{
    MultiLineBox box;

    QTest::keyClicks(&box, u"a"_s);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClicks(&box, u"b"_s);

    QCOMPARE(box.text(), u"a\r\nb"_s);
}

void MultiLineBoxTest::tabMovesOn()
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* box = new MultiLineBox;
    auto* next = new QLineEdit;
    layout->addWidget(box);
    layout->addWidget(next);
    window.show();
    box->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    QTest::keyClick(box, Qt::Key_Tab);

    QVERIFY(next->hasFocus());
    QCOMPARE(box->text(), QString());
}

void MultiLineBoxTest::settingTheSameTextRaisesNothing()
{
    MultiLineBox box;
    box.setText(u"uno\r\ndos"_s);
    const QSignalSpy changes(&box, &QPlainTextEdit::textChanged);

    box.setText(u"uno\ndos"_s);

    QVERIFY(changes.isEmpty());
}

void MultiLineBoxTest::settingAnotherTextRaisesChange()
{
    MultiLineBox box;
    const QSignalSpy changes(&box, &QPlainTextEdit::textChanged);

    box.setText(u"uno"_s);

    QVERIFY(!changes.isEmpty());
}

void MultiLineBoxTest::focusIsReported()
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* other = new QLineEdit;
    auto* box = new MultiLineBox;
    layout->addWidget(other);
    layout->addWidget(box);
    window.show();
    other->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QSignalSpy came(box, &MultiLineBox::gotFocus);
    const QSignalSpy went(box, &MultiLineBox::lostFocus);

    box->setFocus();
    other->setFocus();

    QCOMPARE(came.size(), 1);
    QCOMPARE(went.size(), 1);
}

QTEST_MAIN(MultiLineBoxTest)
#include "tst_multilinebox.moc"
