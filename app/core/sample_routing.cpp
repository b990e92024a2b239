#include "sample_routing.h"

SampleSlot sampleSlotForSender(const void *sender, const void *dragView1, const void *dragView2)
{
    if (sender == dragView1)
        return SampleSlot::First;
    if (sender == dragView2)
        return SampleSlot::Second;
    return SampleSlot::None;
}

void storeSample(ComparisonSamples &samples, SampleSlot slot, LabColor lab)
{
    switch (slot) {
    case SampleSlot::First:
        samples.lab_1 = lab;
        samples.lab_1_defined = true;
        break;
    case SampleSlot::Second:
        samples.lab_2 = lab;
        samples.lab_2_defined = true;
        break;
    case SampleSlot::None:
        break;
    }
}
