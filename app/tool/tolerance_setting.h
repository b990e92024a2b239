#pragma once
// The tolerance the application's preferences hold, read the way the application reads it.

// The float under kToleranceKey in the application's settings (preferences.h), or
// kDefaultTolerance (2.5) when it was never set. A stored value that is not a
// number reads as 0.
float storedDeltaECMCTolerance();
