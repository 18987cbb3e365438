#include "faulty_disk.h"
#include "test_device.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TEST_F(TestLog, WhatTheDiskRefusedIsStillToBeSaved) {
    FaultyDisk disk;
    Reconnect();
    CVehicle stored;
    stored.SetName(L"before");
    ASSERT_TRUE(Layer.Save(&stored, 0));
    stored.SetName(L"after");
    CVehicle added;
    disk.FailFrom(0);
    EXPECT_FALSE(Layer.Save(&stored, 0));
    EXPECT_FALSE(Layer.Save(&added, 0));
    EXPECT_TRUE(stored.IsDirty() && added.IsDirty() && added.GetID() == 0);
    EXPECT_STREQ(LoadAll<CVehicle>()->Get(0)->GetName(), L"before");
    disk.Mend();
    EXPECT_TRUE(Layer.Save(&stored, 0));
    EXPECT_TRUE(Layer.Save(&added, 0));
    EXPECT_STREQ(LoadAll<CVehicle>()->Get(0)->GetName(), L"after");
    Layer.Disconnect();
}

TEST_F(TestLog, WhatWasSavedOutlivesAKill) {
    Layer.Disconnect();
    int channel[2];
    ASSERT_EQ(pipe(channel), 0);
    const pid_t child = fork();
    if (child == 0) {
        CDataLayer own;
        own.Connect(Path);
        for (;;) {
            CKeyword keyword;
            keyword.SetType(CKeyword::KeywordRepair);
            const LONG id = own.Save(&keyword, 0) ? keyword.GetID() : -1;
            if (write(channel[1], &id, sizeof id) != sizeof id)
                _exit(1);
        }
    }
    close(channel[1]);
    LONG last = 0;
    for (int i = 0; i < 50; ++i)
        ASSERT_EQ(read(channel[0], &last, sizeof last), static_cast<ssize_t>(sizeof last));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (read(channel[0], &last, sizeof last) == static_cast<ssize_t>(sizeof last)) { }
    close(channel[0]);
    ASSERT_GE(last, 50);
    Reconnect();
    const auto keywords = LoadAll<CKeyword>(CKeyword::KeywordRepair);
    EXPECT_GE(keywords->GetCount(), last);
    EXPECT_LE(keywords->GetCount(), last + 1); // one may have been stored and not yet told
}

} // namespace
