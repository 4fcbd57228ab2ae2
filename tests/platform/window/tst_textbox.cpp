// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/window/textbox.h"
#include "support/failureof.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using platform::TextBox;
using support::failureOf;

class TextBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void settingAnotherTextRaisesChangeAtOnce();
    void settingTheSameTextRaisesNothing();
    void textLongerThanTheLimitIsCut();
    void cutTextThatStandsAlreadyRaisesNothing();
    void typingStopsAtTheLimit();
    void clearingInsideChangeDoesNotRecurse();
    void disabledBoxStillTakesText();
    void alignmentIs0LeftAnd1Right();
    void otherAlignmentFails();
    void selStartMovesTheCursorAndDropsTheSelection();
    void negativeSelStartFails();
    void doubleClickIsReported();
    void keyIsReportedBeforeTheBoxActs();
};

void TextBoxTest::settingAnotherTextRaisesChangeAtOnce()
{
    TextBox box;
    const QSignalSpy changes(&box, &QLineEdit::textChanged);

    box.setText(u"uno"_s);

    QCOMPARE(changes.size(), 1);
    QCOMPARE(box.text(), u"uno"_s);
}

void TextBoxTest::settingTheSameTextRaisesNothing()
{
    TextBox box;
    box.setText(u"uno"_s);
    const QSignalSpy changes(&box, &QLineEdit::textChanged);

    box.setText(u"uno"_s);

    QVERIFY(changes.isEmpty());
}

void TextBoxTest::textLongerThanTheLimitIsCut()
{
    TextBox box;
    box.setMaxLength(4);

    box.setText(u"00012"_s);

    QCOMPARE(box.text(), u"0001"_s);
}

void TextBoxTest::cutTextThatStandsAlreadyRaisesNothing()
{
    TextBox box;
    box.setMaxLength(4);
    box.setText(u"0001"_s);
    const QSignalSpy changes(&box, &QLineEdit::textChanged);

    box.setText(u"00012"_s);

    QVERIFY(changes.isEmpty());
}

void TextBoxTest::typingStopsAtTheLimit()
{
    TextBox box;
    box.setMaxLength(4);

    QTest::keyClicks(&box, u"00012"_s);

    QCOMPARE(box.text(), u"0001"_s);
}

void TextBoxTest::clearingInsideChangeDoesNotRecurse()
{
    TextBox box;
    int changes = 0;
    connect(&box, &QLineEdit::textChanged, &box, [&] {
        ++changes;
        box.setText({});
    });

    box.setText(u" "_s);

    QCOMPARE(changes, 2);
    QCOMPARE(box.text(), QString());
}

void TextBoxTest::disabledBoxStillTakesText()
{
    TextBox box;
    box.setEnabled(false);

    box.setText(u"0000000013"_s);

    QCOMPARE(box.text(), u"0000000013"_s);
}

void TextBoxTest::alignmentIs0LeftAnd1Right()
{
    TextBox box;
    QCOMPARE(box.textAlignment(), TextBox::kLeft);

    box.setTextAlignment(TextBox::kRight);

    QCOMPARE(box.textAlignment(), 1);
    QVERIFY(box.alignment().testFlag(Qt::AlignRight));
}

void TextBoxTest::otherAlignmentFails()
{
    TextBox box;

    QCOMPARE(failureOf([&] { box.setTextAlignment(2); }), platform::kInvalidPropertyValue);
    QCOMPARE(box.textAlignment(), TextBox::kLeft);
}

void TextBoxTest::selStartMovesTheCursorAndDropsTheSelection()
{
    TextBox box;
    box.setText(u"12345"_s);
    box.selectAll();

    box.setSelStart(0);

    QCOMPARE(box.selStart(), 0);
    QVERIFY(!box.hasSelectedText());
}

void TextBoxTest::negativeSelStartFails()
{
    TextBox box;

    QCOMPARE(failureOf([&] { box.setSelStart(-1); }), platform::kInvalidPropertyValue);
}

void TextBoxTest::doubleClickIsReported()
{
    TextBox box;
    const QSignalSpy doubles(&box, &TextBox::doubleClicked);

    QTest::mouseDClick(&box, Qt::LeftButton);

    QCOMPARE(doubles.size(), 1);
}

void TextBoxTest::keyIsReportedBeforeTheBoxActs()
{
    TextBox box;
    QString textAtKey = u"?"_s;
    connect(&box, &TextBox::keyPressed, &box, [&](int key) {
        if (key == Qt::Key_A)
            textAtKey = box.text();
    });

    QTest::keyClick(&box, Qt::Key_A);

    QCOMPARE(textAtKey, QString());
    QCOMPARE(box.text(), u"a"_s);
}

QTEST_MAIN(TextBoxTest)
#include "tst_textbox.moc"
