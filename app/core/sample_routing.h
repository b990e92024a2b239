#pragma once
// The two samples of the comparison and which swatch sets which. A document dropped on the
// first swatch sets sample 1, one dropped on the second sets sample 2; the swatches are told
// apart by identity alone. A sample, once set, stays defined; a later document replaces it.

#include "color_types.h"

enum class SampleSlot {
    None,   // a sender that is neither swatch: its own colour changes, no sample does
    First,  // sample 1, the reference of the comparison
    Second, // sample 2
};

// First when sender is dragView1, else Second when it is dragView2, else None. Only the
// addresses are compared. Example: sampleSlotForSender(&b, &a, &b) is Second.
SampleSlot sampleSlotForSender(const void *sender, const void *dragView1, const void *dragView2);

struct ComparisonSamples {
    bool lab_1_defined = false;
    bool lab_2_defined = false;
    LabColor lab_1{0, 0, 0, 1};
    LabColor lab_2{0, 0, 0, 1};

    bool bothDefined() const noexcept { return lab_1_defined && lab_2_defined; }
};

// Stores lab as the sample of slot and marks it defined; None stores nothing.
void storeSample(ComparisonSamples &samples, SampleSlot slot, LabColor lab);
