#include "records/object_list.h"
#include "test_device.h"

namespace {

int alive = 0;

struct Counted : CBaseObject {
    Counted() { ++alive; }
    ~Counted() override { --alive; }
};

TEST(ObjectList, OwnsItsItemsUnlessToldOtherwise) {
    CObjectListT<Counted> owner;
    CObjectListT<Counted> gathered;
    for (int i = 0; i < 3; ++i)
        owner.Add(new Counted);
    gathered.AllowAutoCleanup(0);
    gathered.Add(owner.Get(0));
    gathered.Clear();
    EXPECT_EQ(alive, 3);
    const Counted* last = owner.Get(2);
    const std::unique_ptr<Counted> second(owner.Disown(1));
    EXPECT_EQ(owner.Get(1), last);
    owner.Clear();
    EXPECT_TRUE(alive == 1 && !owner.Get(0) && !owner.Disown(-1));
}

using NewRecord = TestLog;

TEST_F(NewRecord, IsDirtyUntilItIsStoredAndAfterAChange) {
    CEntry entry;
    EXPECT_TRUE(entry.IsDirty() && Layer.Save(&entry, 0));
    entry.SetVendor(nullptr);
    entry.SetNotes(L"");
    entry.SetAmount(0);
    entry.SetDate(entry.GetDate());
    EXPECT_FALSE(entry.IsDirty());
    entry.SetCustom2(0.01F);
    EXPECT_TRUE(entry.IsDirty() && Layer.Save(&entry, 0) && !entry.IsDirty());
    entry.SetNotes(L"x");
    EXPECT_TRUE(entry.IsDirty());
}

} // namespace
