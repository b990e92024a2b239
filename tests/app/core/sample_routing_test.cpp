// Which swatch sets which sample, and how samples are stored.
#include "sample_routing.h"

#include <gtest/gtest.h>

namespace {

TEST(SampleRouting, BySenderIdentityOnly)
{
    int view1 = 0, view2 = 0, other = 0;
    EXPECT_EQ(sampleSlotForSender(&view1, &view1, &view2), SampleSlot::First);
    EXPECT_EQ(sampleSlotForSender(&view2, &view1, &view2), SampleSlot::Second);
    EXPECT_EQ(sampleSlotForSender(&other, &view1, &view2), SampleSlot::None);
    // The same object as both swatches counts as the first.
    EXPECT_EQ(sampleSlotForSender(&view1, &view1, &view1), SampleSlot::First);
}

TEST(SampleRouting, EachSlotIsStoredOnItsOwn)
{
    ComparisonSamples samples;
    storeSample(samples, SampleSlot::Second, {60, 1, 2, 1});
    EXPECT_FALSE(samples.lab_1_defined);
    EXPECT_FALSE(samples.bothDefined());
    storeSample(samples, SampleSlot::First, {50, 3, 4, 1});
    storeSample(samples, SampleSlot::First, {55, 5, 6, 1});
    storeSample(samples, SampleSlot::None, {0, 0, 0, 1});
    EXPECT_TRUE(samples.bothDefined());
    EXPECT_EQ(samples.lab_1.L, 55);
    EXPECT_EQ(samples.lab_2.L, 60);
}

} // namespace
