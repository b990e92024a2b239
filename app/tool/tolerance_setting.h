#pragma once
// The tolerance the application's preferences hold, read the way the application reads it.

// The float under kToleranceKey in the application's settings (preferences.h), or
// kDefaultTolerance (2.5) when it was never set. A stored text reads as floatFromStoredText
// reads it ("3.5abc" is 3.5, "abc" 0).
float storedDeltaECMCTolerance();
