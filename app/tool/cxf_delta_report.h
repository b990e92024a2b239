#pragma once
// cxf-delta's work apart from the command line: read two CxF documents with the application's
// import, compare them with the application's comparison, and write the result as text or as
// one JSON object. Plain C++; numbers are printed so that they read back exactly (9
// significant digits for floats, 17 for doubles).

#include "comparison.h"
#include "cxf_import.h"

#include <optional>
#include <string>

// One document as read.
struct SampleReport {
    std::string file;
    CxFImportOutcome outcome; // an unreadable file is refused as invalid XML data

    bool accepted() const { return outcome.accepted(); }
    // The refusal text: the log line or alert message.
    std::string message() const;
};

struct DeltaReport {
    float tolerance = 0;
    SampleReport samples[2];
    std::optional<CmcDifferences> differences; // when both samples were accepted
    Verdict verdict = Verdict::Neutral;
    Highlight highlight;
};

// Exit statuses.
inline constexpr int kExitMatch = 0; // match, or identical samples
inline constexpr int kExitMismatch = 1;
inline constexpr int kExitRefused = 2; // a document refused or unreadable
inline constexpr int kExitUsage = 64;

// Reads the file as the window does (document_reading.h) and imports it; a file that gives no
// text is refused as invalid XML data, with the reason in outcome.detail.
SampleReport readSample(const std::string &file);

// Document A is sample 1, the reference; B is sample 2. Differences, verdict and highlight as
// the window computes them, when both were accepted.
DeltaReport compareDocuments(const std::string &fileA, const std::string &fileB, float tolerance);

int exitStatusFor(const DeltaReport &report);

// Human-readable report for stdout.
std::string formatText(const DeltaReport &report);

// One JSON object:
// {"tolerance": T, "samples": [S1, S2], "delta_E": …, "delta_L": …, "delta_C": …,
//  "delta_H": …, "delta_H_deg": …, "verdict": "match"|"mismatch"|"neutral",
//  "highlight": ["delta_L", …]}
// with S = {"file": …, "status": "ok"|"refused", "message": …, "caption": …,
// "lab": [L, a, b], "patches": n}. For a refused sample message is its refusal text and
// caption, lab and patches are null; for an accepted one message is null. When a document
// is refused, the five differences, verdict and highlight are null. A number that is not
// finite is written as the string "NaN", "Infinity" or "-Infinity".
std::string formatJson(const DeltaReport &report);

// Lines for stderr about refused or unreadable documents ("<file>: <text>"), or "".
std::string formatRefusals(const DeltaReport &report);
