#include "cxf_import.h"

#include "XMLReader.h"
#include "XMLStrings.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <span>

namespace {

CxFImportOutcome refusal(CxFImportStatus status, std::string_view logLine, bool beep)
{
    CxFImportOutcome outcome;
    outcome.status = status;
    outcome.logLine = logLine;
    outcome.beep = beep;
    return outcome;
}

CxFImportOutcome invalidXMLData(std::string detail)
{
    CxFImportOutcome outcome = refusal(CxFImportStatus::InvalidXMLData, kLogInvalidXMLData, true);
    outcome.detail = std::move(detail);
    return outcome;
}

// The value under key when it is an element with children or attributes, else nullptr.
const XMLNode *elementAt(const XMLNode *node, std::string_view key)
{
    const XMLNode *value = node ? node->find(key) : nullptr;
    return value && value->isDictionary() ? value : nullptr;
}

// The float value of the bare text under key, widened; 0 when there is none.
double decimalAt(const XMLNode *node, std::string_view key)
{
    const XMLNode *value = node ? node->find(key) : nullptr;
    const XMLText *text = value ? value->stringValue() : nullptr;
    return text ? static_cast<double>(floatValue(*text)) : 0.0;
}

struct LabSum {
    double L = 0, a = 0, b = 0;
};

LabSum labOf(const XMLNode &patch)
{
    const XMLNode *lab = elementAt(&patch, "CxF:ColorSpaceCIELab");
    return {decimalAt(lab, "CxF:L"), decimalAt(lab, "CxF:A"), decimalAt(lab, "CxF:B")};
}

const XMLNode *reflectancePointsOf(const XMLNode &patch)
{
    const XMLNode *spectral = elementAt(&patch, "CxF:ColorSpaceSpectral");
    return spectral ? spectral->find("CxF:ReflectancePoint") : nullptr;
}

// The points as a list: an array's items, or the single node itself.
std::span<const XMLNode> pointList(const XMLNode *points)
{
    if (!points)
        return {};
    if (points->isArray())
        return points->items();
    return {points, 1};
}

// The value of a reflectance point: the float value of its "text", or of the point itself when
// it is a bare text, widened; 0 when there is none.
double pointValue(const XMLNode &point)
{
    if (const XMLText *text = point.stringValue())
        return static_cast<double>(floatValue(*text));
    const XMLNode *value = point.find("text");
    const XMLText *valueText = value ? value->stringValue() : nullptr;
    return valueText ? static_cast<double>(floatValue(*valueText)) : 0.0;
}

std::string formatCount(const char *format, long count)
{
    char buffer[96];
    const int length = std::snprintf(buffer, sizeof buffer, format, count);
    return std::string(buffer, static_cast<std::size_t>(std::max(length, 0)));
}

// Reads the patches and the caption of an accepted colour set.
CxFImportOutcome readColors(const XMLNode &colors, std::string caption)
{
    CxFImportOutcome outcome;
    LabSum sum;
    const bool untitled = caption == kUntitledPaletteName;
    if (colors.isDictionary()) {
        if (untitled) {
            if (const XMLNode *name = colors.find("ColorName"); name && name->isString())
                caption = *name->stringValue();
            caption += kCaptionOnePatch;
        } else {
            caption += kCaptionProjectWithOnePatch;
        }
        sum = labOf(colors);
        // The curve is read and let go: no spectrum from a document is kept.
        createSpectralFromReflectancePoints(reflectancePointsOf(colors));
        outcome.patchCount = 1;
    } else if (colors.isArray()) {
        const auto patches = colors.items();
        const long n = static_cast<long>(patches.size());
        for (const XMLNode &patch : patches) {
            const LabSum lab = labOf(patch);
            sum.L += lab.L;
            sum.a += lab.a;
            sum.b += lab.b;
        }
        sum = {sum.L / static_cast<double>(n), sum.a / static_cast<double>(n),
               sum.b / static_cast<double>(n)};
        // The averaged curve is computed and let go, like the single patch's curve.
        averageReflectanceCurve(patches, nullptr);
        caption = untitled ? formatCount(kCaptionPatchesAveragedFormat, n)
                           : caption + formatCount(kCaptionProjectPatchesAveragedFormat, n);
        outcome.patchCount = n;
    }
    // Anything else (a bare text): Lab stays 0 and the caption stays the set name.
    outcome.lab = {sum.L, sum.a, sum.b, 1.0};
    outcome.caption = std::move(caption);
    return outcome;
}

} // namespace

namespace {

CxFImportOutcome importWithinBudget(std::string_view text);

} // namespace

CxFImportOutcome importCxFDocument(std::string_view text)
{
    try {
        return importWithinBudget(text);
    } catch (const std::bad_alloc &) {
        return invalidXMLData("out of memory");
    }
}

namespace {

CxFImportOutcome importWithinBudget(std::string_view text)
{
    if (text.size() > kMaxCxFDocumentBytes) {
        return invalidXMLData("the document is " + std::to_string(text.size()) +
                              " bytes, more than the limit of " +
                              std::to_string(kMaxCxFDocumentBytes));
    }
    XMLError error;
    XMLReadLimits limits;
    limits.maxElements = kMaxCxFElements;
    limits.maxAttributes = kMaxCxFAttributes;
    limits.maxAttributesPerElement = kMaxCxFAttributesPerElement;
    limits.maxNames = kMaxCxFNames;
    limits.maxDepth = kMaxCxFDepth;
    limits.maxTextBytes = kMaxCxFTextBytes;
    limits.maxParserBytes = kMaxCxFParserBytes;
    const std::optional<XMLNode> tree = XMLReader::dictionaryForXMLString(text, &error, limits);
    if (!tree)
        return invalidXMLData(error.description());

    const XMLNode *cxf = elementAt(&*tree, "CxF:CxF");
    if (!cxf)
        return refusal(CxFImportStatus::NoCxFKey, kLogNoCxFKey, false);
    const XMLNode *palette = elementAt(cxf, "CxF:Palette");
    if (!palette)
        return refusal(CxFImportStatus::NoPaletteKey, kLogNoPaletteKey, false);
    const XMLNode *set = elementAt(palette, "CxF:ColorSet");
    if (!set)
        return refusal(CxFImportStatus::NoColorSetKey, kLogNoColorSetKey, false);

    const XMLNode *tristimulus = elementAt(elementAt(set, "CxF:CollectionColorSpaceSpecification"),
                                           "CxF:ColorSpaceSpecificationSpectrumTristimulus");
    const XMLNode *fieldOfView = tristimulus ? tristimulus->find("CxF:FieldOfView") : nullptr;
    const XMLNode *options = elementAt(tristimulus, "CxF:IlluminationOptions");
    const XMLNode *illuminant = options ? options->find("CxF:Illuminant") : nullptr;
    if (!(illuminant && illuminant->equalsString(kAcceptedIlluminant) && fieldOfView &&
          fieldOfView->equalsString(kAcceptedFieldOfView))) {
        CxFImportOutcome outcome =
            refusal(CxFImportStatus::MeasurementConditions, std::string_view(), true);
        outcome.alert = CxFAlert{kAlertMeasurementConditionsTitle,
                                 kAlertMeasurementConditionsMessage, kAlertOkButton};
        return outcome;
    }

    const XMLNode *name = set->find("ColorSetName");
    std::string caption(name && name->isString() ? std::string_view(*name->stringValue())
                                                 : kUntitledPaletteName);
    const XMLNode *colors = set->find("CxF:Color");
    if (!colors)
        return refusal(CxFImportStatus::NoColor, std::string_view(), false);
    return readColors(*colors, std::move(caption));
}

} // namespace

CxFImportOutcome importUnreadableDocument(std::string detail)
{
    return invalidXMLData(std::move(detail));
}

std::string_view refusalMessage(const CxFImportOutcome &outcome)
{
    if (outcome.accepted())
        return {};
    if (!outcome.logLine.empty())
        return outcome.logLine;
    if (outcome.alert)
        return outcome.alert->message;
    return kNoColorMessage;
}

std::size_t reflectancePointCount(const XMLNode *points)
{
    return pointList(points).size();
}

SpectrumBuffer averageReflectanceCurve(std::span<const XMLNode> patches, std::size_t *count)
{
    const std::size_t points =
        patches.empty() ? 0 : reflectancePointCount(reflectancePointsOf(patches[0]));
    if (count)
        *count = points;
    SpectrumBuffer average = allocate_spectrum(points);
    if (!average)
        return average;
    // Each patch's values are added as its curve (createSpectralFromReflectancePoints) holds
    // them, read in place: no curve is built for a patch.
    for (const XMLNode &patch : patches) {
        const auto curve = pointList(reflectancePointsOf(patch));
        const std::size_t shared = std::min(points, curve.size());
        for (std::size_t k = 0; k < shared; ++k)
            average[k].value += pointValue(curve[k]);
    }
    for (std::size_t k = 0; k < points; ++k)
        average[k].value /= static_cast<double>(patches.size());
    return average;
}

SpectrumBuffer createSpectralFromReflectancePoints(const XMLNode *points)
{
    const auto list = pointList(points);
    SpectrumBuffer spectrum = allocate_spectrum(list.size());
    if (!spectrum)
        return spectrum;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const XMLNode &point = list[i];
        const XMLNode *wavelength = point.find("Wavelength");
        const XMLText *wavelengthText = wavelength ? wavelength->stringValue() : nullptr;
        spectrum[i] = {static_cast<uint32_t>(wavelengthText ? intValue(*wavelengthText) : 0),
                       pointValue(point)};
    }
    return spectrum;
}
