// Where the edit list puts its columns, its mask and its horizontal extents, and the writes that
// it refuses.
#include <gtest/gtest.h>

#include "tests/edit_list/edit_list_fixture.h"

namespace zk {
namespace {

struct LayoutCase {
  const char* name;
  bool show_tags;
  zktELTagsPosition position;
  zktCmdBorderStyle border;
  Box items;
  Box tags;  // only when shown
  bool mask_visible;
  double mask_left;
  double mask_width;
};

// A control of 3000 x 1500 twips at 15 twips a pixel, tag column 500 twips wide.
const LayoutCase kLayouts[] = {
    {"no border, tags on the left",
     true,
     zktTagPosLeft,
     zktBSNone,
     {485, -15, 2530, 1530},
     {-15, -15, 3000, 1530},
     true,
     485,
     15},
    {"border, tags on the left",
     true,
     zktTagPosLeft,
     zktBSSolid,
     {500, 0, 2500, 1500},
     {0, 0, 3000, 1500},
     false,
     500,
     0},
    {"no border, tags on the right",
     true,
     zktTagPosRight,
     zktBSNone,
     {-15, -15, 3000, 1530},
     {2485, -15, 530, 1530},
     true,
     2485,
     15},
    {"border, tags on the right",
     true,
     zktTagPosRight,
     zktBSSolid,
     {0, 0, 3000, 1500},
     {2500, 0, 500, 1500},
     false,
     2500,
     0},
    {"no border, tags hidden",
     false,
     zktTagPosLeft,
     zktBSNone,
     {-15, -15, 3030, 1530},
     {},
     false,
     0,
     0},
    {"border, tags hidden", false, zktTagPosRight, zktBSSolid, {0, 0, 3000, 1500}, {}, false, 0, 0},
};

TEST_F(EditListTest, ColumnsAndMaskFollowTheBorderAndTheTagsPlace) {
  for (const LayoutCase& row : kLayouts) {
    SCOPED_TRACE(row.name);
    ZKEditList& list = Place(u"E" + Utf8ToUtf16(std::to_string(&row - kLayouts)));
    list.SetBorderStyle(row.border);
    list.SetTagColumnPosition(row.position);
    list.SetShowTags(row.show_tags);
    EXPECT_EQ(BoxOf(list.ItemsBox()), row.items);
    EXPECT_EQ(list.TagsBox().Visible(), row.show_tags);
    if (row.show_tags) {
      EXPECT_EQ(BoxOf(list.TagsBox()), row.tags);
    }
    EXPECT_EQ(list.BorderMask().Visible(), row.mask_visible);
    if (row.show_tags) {
      EXPECT_EQ(list.BorderMask().Left(), row.mask_left);
      EXPECT_EQ(list.BorderMask().Top(), 0);
      EXPECT_EQ(list.BorderMask().Width(), row.mask_width);
      EXPECT_EQ(list.BorderMask().Height(), 1500);
    }
  }
}

TEST_F(EditListTest, TheMaskTakesTheFrontColumnsBackgroundAndTheDisabledColour) {
  ZKEditList& list = Place(u"E");
  list.SetBorderStyle(zktBSNone);
  list.SetShowTags(true);
  list.SetBackColor(0x112233);
  list.SetTagBackColor(0x445566);
  EXPECT_EQ(list.BorderMask().BackColor(), 0x112233u);
  list.SetTagColumnPosition(zktTagPosRight);
  EXPECT_EQ(list.BorderMask().BackColor(), 0x445566u);
  list.SetEnabled(false);
  EXPECT_EQ(list.ItemsBox().BackColor(), system_color::kInactiveBorder);
  EXPECT_EQ(list.TagsBox().BackColor(), system_color::kInactiveBorder);
  EXPECT_EQ(list.BorderMask().BackColor(), system_color::kInactiveBorder);
  EXPECT_FALSE(list.ItemsBox().Enabled());
  EXPECT_FALSE(list.TagsBox().Enabled());
  // BackColor keeps what was written; TagBackColor reads what the tag column shows.
  EXPECT_EQ(list.BackColor(), 0x112233u);
  EXPECT_EQ(list.TagBackColor(), system_color::kInactiveBorder);
  list.SetEnabled(true);
  EXPECT_EQ(list.TagBackColor(), 0x445566u);
  EXPECT_EQ(list.ItemsBox().BackColor(), 0x112233u);
}

TEST_F(EditListTest, RefusedWritesChangeNothingAndNotifyNothing) {
  ZKEditList& list = Place(u"E");
  list.SetShowTags(true);
  form_.TakePropertyChanges();
  const Box items = BoxOf(list.ItemsBox());
  list.SetTagColumnWidth(0);
  list.SetTagColumnWidth(-5);
  list.SetTagColumnPosition(2);
  list.SetHorizontalScrollBar(-1);
  list.SetAppearance(2);
  list.SetBorderStyle(-1);
  list.SetRowHeight(0);
  list.SetSortOrder(3);
  list.SetItemDataType(6);
  list.SetTagForceTextCase(3);
  list.SetItemMaxLength(-1);
  EXPECT_TRUE(form_.TakePropertyChanges().empty());
  EXPECT_EQ(list.TagColumnWidth(), 500);
  EXPECT_EQ(list.TagColumnPosition(), zktTagPosLeft);
  EXPECT_EQ(list.HorizontalScrollBar(), 0);
  EXPECT_EQ(list.Appearance(), zktApFlat);
  EXPECT_EQ(list.BorderStyle(), zktBSSolid);
  EXPECT_EQ(list.RowHeight(), 13);
  EXPECT_EQ(list.SortOrder(), zktSortNone);
  EXPECT_EQ(list.ItemDataType(), zktTDText);
  EXPECT_EQ(BoxOf(list.ItemsBox()), items);
  list.SetTagColumnWidth(800);
  EXPECT_EQ(BoxOf(list.ItemsBox()), (Box{800, 0, 2200, 1500}));
}

TEST_F(EditListTest, HorizontalScrollBarGivesEachColumnItsWidthTimesTheFactor) {
  struct Case {
    int32_t factor;
    int32_t items_extent;
    int32_t tags_extent;
  };
  // Tags on the left, with a border: items 2500 twips wide, tags 3000 (behind the items).
  const Case cases[] = {
      {0, 0, 0}, {1, 0, 0}, {2, 2500 * 2 / 15, 3000 * 2 / 15}, {3, 2500 * 3 / 15, 3000 * 3 / 15}};
  for (const Case& row : cases) {
    SCOPED_TRACE(row.factor);
    ZKEditList& list = Place(u"E" + Utf8ToUtf16(std::to_string(row.factor)));
    list.SetShowTags(true);
    list.SetHorizontalScrollBar(row.factor);
    EXPECT_EQ(list.HorizontalScrollBar(), row.factor);
    EXPECT_EQ(list.ItemsBox().HorizontalExtent(), row.items_extent);
    EXPECT_EQ(list.TagsBox().HorizontalExtent(), row.tags_extent);
  }
}

TEST_F(EditListTest, AppearanceIs3dOnlyWithABorderAndTheTagsFollowTheItems) {
  struct Case {
    zktAppearance appearance;
    zktCmdBorderStyle border;
    int16_t shown;
  };
  const Case cases[] = {{zktApFlat, zktBSSolid, 0},
                        {zktAp3d, zktBSSolid, 1},
                        {zktAp3d, zktBSNone, 0},
                        {zktApFlat, zktBSNone, 0}};
  ZKEditList& list = Place(u"E");
  for (const Case& row : cases) {
    list.SetAppearance(row.appearance);
    list.SetBorderStyle(row.border);
    EXPECT_EQ(list.ItemsBox().Appearance(), row.shown);
    EXPECT_EQ(list.TagsBox().Appearance(), row.shown);
  }
}

TEST_F(EditListTest, RowHeightAndFontReachBothColumns) {
  ZKEditList& list = Place(u"E");
  list.SetRowHeight(20);
  EXPECT_EQ(list.RowHeight(), 20);
  EXPECT_EQ(list.ItemsBox().RowHeight(), 20);
  EXPECT_EQ(list.TagsBox().RowHeight(), 20);
  // A larger font gives both columns its line (round(12 x 1.6) = 19 pixels).
  list.Font()->SetSize(12);
  EXPECT_EQ(list.ItemsBox().RowHeight(), 19);
  EXPECT_EQ(list.TagsBox().RowHeight(), 19);
  EXPECT_EQ(list.TagsBox().Font().size_e4, list.ItemsBox().Font().size_e4);
  // A height the list box refuses is ignored.
  list.SetRowHeight(300);
  EXPECT_EQ(list.RowHeight(), 19);
}

}  // namespace
}  // namespace zk
