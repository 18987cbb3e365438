#include "records/object_list.h"
#include "test_device.h"

namespace {

int alive = 0;

class Counted : public CBaseObject {
public:
    Counted() { ++alive; }
    ~Counted() override { --alive; }
};

TEST(ObjectList, OwnsItsItemsUnlessToldOtherwise) {
    {
        CObjectListT<Counted> owner;
        for (int i = 0; i < 4; ++i)
            owner.Add(new Counted);
        {
            CObjectListT<Counted> gathered;
            gathered.AllowAutoCleanup(0);
            gathered.Add(owner.Get(1));
        }
        EXPECT_EQ(alive, 4);
        const Counted* last = owner.Get(3);
        const std::unique_ptr<Counted> third(owner.Disown(2));
        EXPECT_EQ(owner.Get(2), last);
        owner.Clear();
        EXPECT_EQ(alive, 1);
        EXPECT_TRUE(!owner.Get(0) && !owner.Disown(-1));
        owner.Add(new Counted);
    }
    EXPECT_EQ(alive, 0);
}

using NewRecord = TestLog;

TEST_F(NewRecord, IsDirtyUntilItIsStoredAndAfterAChange) {
    CEntry entry;
    EXPECT_TRUE(entry.IsDirty());
    ASSERT_TRUE(Layer.Save(&entry, 0));
    EXPECT_FALSE(entry.IsDirty());
    entry.SetVendor(nullptr);
    entry.SetNotes(L"");
    entry.SetAmount(0);
    entry.SetDate(entry.GetDate());
    EXPECT_FALSE(entry.IsDirty());
    entry.SetCustom2(0.01F);
    EXPECT_TRUE(entry.IsDirty());
    ASSERT_TRUE(Layer.Save(&entry, 0));
    entry.SetNotes(L"x");
    EXPECT_TRUE(entry.IsDirty());
}

} // namespace
