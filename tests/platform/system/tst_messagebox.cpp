// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system/messagebox.h"

#include <QList>
#include <QTest>

using namespace platform;

class MessageBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void withoutABoxItReturnsAtOnce();
    void messageReachesTheReplacement();
    void realBoxShowsWhenNothingReplacesIt();
    void replacementStandsBeforeTheRealBox();
    void emptyFunctionBringsTheRealBoxBack();

private:
    QList<Message> m_real;
    QList<Message> m_replaced;
    const Message m_message{QStringLiteral("Parámetro incorrecto"), {}, MessageIcon::None};
};

void MessageBoxTest::cleanup()
{
    setMessageBox({});
    setRealMessageBox({});
    m_real.clear();
    m_replaced.clear();
}

void MessageBoxTest::withoutABoxItReturnsAtOnce()
{
    messageBox(m_message);

    QVERIFY(m_real.isEmpty() && m_replaced.isEmpty());
}

void MessageBoxTest::messageReachesTheReplacement()
{
    setMessageBox([this](const Message& message) { m_replaced.append(message); });

    messageBox({QStringLiteral("Hecho"), QStringLiteral("Aviso"), MessageIcon::Information});

    QCOMPARE(m_replaced.size(), 1);
    QCOMPARE(m_replaced.first().text, QStringLiteral("Hecho"));
    QCOMPARE(m_replaced.first().title, QStringLiteral("Aviso"));
    QCOMPARE(m_replaced.first().icon, MessageIcon::Information);
}

void MessageBoxTest::realBoxShowsWhenNothingReplacesIt()
{
    setRealMessageBox([this](const Message& message) { m_real.append(message); });

    messageBox(m_message);

    QVERIFY(m_real == QList<Message>{m_message});
}

void MessageBoxTest::replacementStandsBeforeTheRealBox()
{
    setMessageBox([this](const Message& message) { m_replaced.append(message); });
    setRealMessageBox([this](const Message& message) { m_real.append(message); });

    messageBox(m_message);

    QCOMPARE(m_replaced.size(), 1);
    QCOMPARE(m_real.size(), 0);
}

void MessageBoxTest::emptyFunctionBringsTheRealBoxBack()
{
    setRealMessageBox([this](const Message& message) { m_real.append(message); });
    setMessageBox([this](const Message& message) { m_replaced.append(message); });

    setMessageBox({});
    messageBox(m_message);

    QCOMPARE(m_replaced.size(), 0);
    QCOMPARE(m_real.size(), 1);
}

QTEST_GUILESS_MAIN(MessageBoxTest)
#include "tst_messagebox.moc"
