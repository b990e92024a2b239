#include "cxf_delta_report.h"

#include "document_reading.h"
#include "sample_routing.h"

#include <cmath>
#include <cstdio>

namespace {

std::string printed(const char *format, double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

std::string floatText(float value)
{
    return printed("%.9g", static_cast<double>(value));
}

std::string doubleText(double value)
{
    return printed("%.17g", value);
}

std::string jsonNumber(double value, bool isFloat)
{
    if (std::isnan(value))
        return "\"NaN\"";
    if (std::isinf(value))
        return value > 0 ? "\"Infinity\"" : "\"-Infinity\"";
    return isFloat ? floatText(static_cast<float>(value)) : doubleText(value);
}

// A JSON string; bytes that are not valid UTF-8 (a file name can hold any) become U+FFFD.
std::string jsonString(const std::string &text)
{
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        const std::size_t length = utf8SequenceLength(text, i);
        if (length == 0) {
            out += "\\ufffd";
            ++i;
            continue;
        }
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
            out += escape;
        } else {
            out.append(text, i, length);
        }
        i += length;
    }
    return out + "\"";
}

std::string jsonSample(const SampleReport &sample)
{
    std::string json = "{\"file\": " + jsonString(sample.file);
    if (!sample.accepted()) {
        return json + ", \"status\": \"refused\", \"message\": " + jsonString(sample.message()) +
               ", \"caption\": null, \"lab\": null, \"patches\": null}";
    }
    const LabColor lab = sample.outcome.lab;
    return json + ", \"status\": \"ok\", \"message\": null, \"caption\": " +
           jsonString(sample.outcome.caption) + ", \"lab\": [" + jsonNumber(lab.L, false) + ", " +
           jsonNumber(lab.a, false) + ", " + jsonNumber(lab.b, false) +
           "], \"patches\": " + std::to_string(sample.outcome.patchCount) + "}";
}

const char *verdictName(Verdict verdict)
{
    switch (verdict) {
    case Verdict::Neutral:
        return "neutral";
    case Verdict::Match:
        return "match";
    case Verdict::Mismatch:
        return "mismatch";
    }
    return "";
}

} // namespace

std::string SampleReport::message() const
{
    return std::string(refusalMessage(outcome));
}

SampleReport readSample(const std::string &file)
{
    SampleReport sample;
    sample.file = file;
    const DocumentReading reading = readDocument(file);
    sample.outcome = reading.text ? importCxFDocument(*reading.text)
                                  : importUnreadableDocument(reading.description());
    return sample;
}

DeltaReport compareDocuments(const std::string &fileA, const std::string &fileB, float tolerance)
{
    DeltaReport report;
    report.tolerance = tolerance;
    report.samples[0] = readSample(fileA);
    report.samples[1] = readSample(fileB);

    ComparisonSamples samples;
    const SampleSlot slots[] = {SampleSlot::First, SampleSlot::Second};
    for (int i = 0; i < 2; ++i) {
        if (report.samples[i].accepted())
            storeSample(samples, slots[i], report.samples[i].outcome.lab);
    }
    if (samples.bothDefined()) {
        report.differences = computeCmcDifferences(samples.lab_1, samples.lab_2);
        report.verdict = verdictFor(report.differences->delta_E, tolerance);
        report.highlight = highlightFor(*report.differences);
    }
    return report;
}

int exitStatusFor(const DeltaReport &report)
{
    if (!report.differences)
        return kExitRefused;
    return report.verdict == Verdict::Mismatch ? kExitMismatch : kExitMatch;
}

std::string formatText(const DeltaReport &report)
{
    std::string text;
    for (int i = 0; i < 2; ++i) {
        const SampleReport &sample = report.samples[i];
        text += "sample " + std::to_string(i + 1) + "          " + sample.file + "\n";
        if (!sample.accepted()) {
            text += "  refused         " + sample.message() + "\n";
            continue;
        }
        const LabColor lab = sample.outcome.lab;
        const long n = sample.outcome.patchCount;
        text += "  caption         " + sample.outcome.caption + "\n";
        // Three decimals, as the swatch's caption shows them (the JSON is exact).
        char labText[96];
        std::snprintf(labText, sizeof labText, "%.3f, %.3f, %.3f", lab.L, lab.a, lab.b);
        text += "  D50 L*a*b*      " + std::string(labText) + "  (" + std::to_string(n) +
                (n == 1 ? " patch)\n" : " patches)\n");
    }
    if (!report.differences)
        return text;
    const CmcDifferences &d = *report.differences;
    const auto mark = [](bool highlighted) { return highlighted ? "  <- largest term" : ""; };
    text += "delta E CMC(2:1)  " + floatText(d.delta_E) + "\n";
    text += "delta L           " + floatText(d.delta_L) + mark(report.highlight.lightness) + "\n";
    text += "delta C           " + floatText(d.delta_C) + mark(report.highlight.chroma) + "\n";
    text += "delta H           " + floatText(d.delta_H_deg) + " degrees" +
            mark(report.highlight.hue) + "\n";
    // The window's word: identical samples (delta E exactly 0) are "identical".
    const char *verdict =
        report.verdict == Verdict::Neutral ? "identical" : verdictName(report.verdict);
    text += std::string("verdict           ") + verdict + " (tolerance " +
            floatText(report.tolerance) + ")\n";
    return text;
}

std::string formatJson(const DeltaReport &report)
{
    std::string json = "{\"tolerance\": " + jsonNumber(report.tolerance, true) +
                       ", \"samples\": [" + jsonSample(report.samples[0]) + ", " +
                       jsonSample(report.samples[1]) + "]";
    if (!report.differences) {
        return json + ", \"delta_E\": null, \"delta_L\": null, \"delta_C\": null, "
                      "\"delta_H\": null, \"delta_H_deg\": null, \"verdict\": null, "
                      "\"highlight\": null}\n";
    }
    const CmcDifferences &d = *report.differences;
    json += ", \"delta_E\": " + jsonNumber(d.delta_E, true);
    json += ", \"delta_L\": " + jsonNumber(d.delta_L, true);
    json += ", \"delta_C\": " + jsonNumber(d.delta_C, true);
    json += ", \"delta_H\": " + jsonNumber(d.delta_H, true);
    json += ", \"delta_H_deg\": " + jsonNumber(d.delta_H_deg, true);
    json += std::string(", \"verdict\": \"") + verdictName(report.verdict) + "\"";
    std::string highlight;
    const auto add = [&](bool on, const char *name) {
        if (on)
            highlight += (highlight.empty() ? "\"" : ", \"") + std::string(name) + "\"";
    };
    add(report.highlight.lightness, "delta_L");
    add(report.highlight.chroma, "delta_C");
    add(report.highlight.hue, "delta_H");
    return json + ", \"highlight\": [" + highlight + "]}\n";
}

std::string formatRefusals(const DeltaReport &report)
{
    std::string text;
    for (const SampleReport &sample : report.samples) {
        if (sample.accepted())
            continue;
        const CxFImportOutcome &outcome = sample.outcome;
        if (outcome.alert) {
            text += sample.file + ": " + std::string(outcome.alert->title) + " " +
                    std::string(outcome.alert->message) + "\n";
        } else {
            text += sample.file + ": " + sample.message() + "\n";
        }
        if (!outcome.detail.empty())
            text += sample.file + ": " + outcome.detail + "\n";
    }
    return text;
}
