#pragma once
// Keeps the pages of a large document's buffers for the next one.
//
// A project of 10,000 patches is read through buffers of tens of megabytes; the C library hands
// such buffers back to the system when they are freed, and the next drop pays for touching every
// page again, which costs more than parsing. Served from the heap and kept there up to a bound,
// later drops reuse memory that is already in place.
void keepLargeBuffersInTheHeap();
