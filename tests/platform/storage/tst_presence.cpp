// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/core/failurenumbers.h"
#include "platform/storage/otherstation.h"
#include "platform/storage/storefixture.h"

#include <QTest>

using namespace platform;
using namespace platform::storage;
using namespace platform::storage::test;

class PresenceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storeOpensTwiceShared();
    void exclusiveOpenFailsWhileThisProcessHasTheStoreOpen();
    void exclusiveOpenFailsWhileAnotherProcessHasTheStoreOpen();
    void sharedOpenFailsWhileThisProcessHoldsTheStoreExclusively();
    void sharedOpenFailsWhileAnotherProcessHoldsTheStoreExclusively();
    void otherProcessIsRefusedWhileTheStoreIsHeldExclusively();
    void exclusiveOpenSucceedsOnceTheOthersHaveClosed();
    void exclusiveHolderReadsAndWrites();
    void crashedHolderLeavesNothingBehind();
};

namespace {

int openFailure(const StoreFolder& folder, Sharing sharing)
{
    return failureOf([&] { static_cast<void>(folder.open(sharing)); });
}

} // namespace

void PresenceTest::storeOpensTwiceShared()
{
    const StoreFolder folder;
    const auto first = folder.create();

    QCOMPARE(openFailure(folder, Sharing::Shared), kNoFailure);
}

void PresenceTest::exclusiveOpenFailsWhileThisProcessHasTheStoreOpen()
{
    const StoreFolder folder;
    const auto first = folder.create();

    QCOMPARE(openFailure(folder, Sharing::Exclusive), kCouldNotLockFile);
}

void PresenceTest::exclusiveOpenFailsWhileAnotherProcessHasTheStoreOpen()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());
    const OtherStation other(folder.path(), u"shared"_s);
    QCOMPARE(other.answer(), u"held"_s);

    QCOMPARE(openFailure(folder, Sharing::Exclusive), kCouldNotLockFile);
}

void PresenceTest::sharedOpenFailsWhileThisProcessHoldsTheStoreExclusively()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());
    const auto holder = folder.open(Sharing::Exclusive);

    QCOMPARE(openFailure(folder, Sharing::Shared), kCouldNotLockFile);
}

void PresenceTest::sharedOpenFailsWhileAnotherProcessHoldsTheStoreExclusively()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());
    const OtherStation other(folder.path(), u"exclusive"_s);
    QCOMPARE(other.answer(), u"held"_s);

    QCOMPARE(openFailure(folder, Sharing::Shared), kCouldNotLockFile);
}

void PresenceTest::otherProcessIsRefusedWhileTheStoreIsHeldExclusively()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());
    const auto holder = folder.open(Sharing::Exclusive);

    const OtherStation other(folder.path(), u"shared"_s);

    QCOMPARE(other.answer(), QString::number(kCouldNotLockFile));
}

void PresenceTest::exclusiveOpenSucceedsOnceTheOthersHaveClosed()
{
    const StoreFolder folder;
    auto first = folder.create();
    OtherStation other(folder.path(), u"shared"_s);
    first.reset();
    other.leave();

    QCOMPARE(openFailure(folder, Sharing::Exclusive), kNoFailure);
}

void PresenceTest::exclusiveHolderReadsAndWrites()
{
    const StoreFolder folder;
    static_cast<void>(folder.createClients());
    const auto holder = folder.open(Sharing::Exclusive);

    holder->openTable(u"CLIENTES"_s)->insert(client(u"A"_s, u"Ana"_s));
    holder->dropIndex(u"CLIENTES"_s, u"PorNombre"_s);

    QCOMPARE(holder->openTable(u"CLIENTES"_s)->count(), 1);
}

void PresenceTest::crashedHolderLeavesNothingBehind()
{
    const StoreFolder folder;
    static_cast<void>(folder.create());
    OtherStation other(folder.path(), u"exclusive"_s);

    other.crash();

    QCOMPARE(openFailure(folder, Sharing::Shared), kNoFailure);
}

QTEST_GUILESS_MAIN(PresenceTest)
#include "tst_presence.moc"
