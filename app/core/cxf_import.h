#pragma once
// Reading a CxF document (the XML Color Exchange Format, as exported for one measured patch or
// a whole project of patches) into one D50 CIELAB sample with a caption.
//
// importCxFDocument does all the reading and averaging and returns what happened; it shows,
// logs and stores nothing. The window applies the outcome, in this order:
//
//   outcome = importCxFDocument(utf-8 text of the dropped document)
//   if logLine is not empty: write it to the log as a plain line
//   if beep:                 sound the system beep
//   if alert:                run an application-modal alert: title, message, one button
//   if not accepted():       stop; the swatch and the samples stay as they were
//   sender's labColor = lab, sender's swatchLabel = caption
//   storeSample(samples, sampleSlotForSender(sender, dragView1, dragView2), lab)
//   calcDeltaE()
//
// The command-line tool runs the same function (sample_routing.h has the storing).
//
// The subset of CxF read, every name matched exactly with its "CxF:" prefix:
//   CxF:CxF / CxF:Palette / CxF:ColorSet                          the colour set
//   set @ColorSetName                                              start of the caption
//   set / CxF:CollectionColorSpaceSpecification /
//         CxF:ColorSpaceSpecificationSpectrumTristimulus /
//         CxF:FieldOfView                                          must be FieldOfView_2_Degree
//         CxF:IlluminationOptions / CxF:Illuminant                 must be Illuminant_D50
//   set / CxF:Color                                                one patch, or several
//   patch @ColorName                                               caption of one untitled patch
//   patch / CxF:ColorSpaceCIELab / CxF:L, CxF:A, CxF:B             L*, a*, b*
//   patch / CxF:ColorSpaceSpectral / CxF:ReflectancePoint          @Wavelength (nm) and text
// Numbers are read leniently (XMLStrings.h): decimals as 32-bit floats, rounded once from the
// decimal text and then widened (so 51.23 enters the average as 51.229999542236328), and
// wavelengths as 32-bit integers; a missing or non-numeric value reads as 0. Patches are
// averaged in double precision.
//
// Choices where the format leaves things open:
// - A colour set without a ColorSetName string is read as if it were named "Untitled palette".
// - A node that is needed as an element with children (CxF:CxF, CxF:Palette, CxF:ColorSet,
//   the steps to the measurement conditions, CxF:ColorSpaceCIELab, CxF:ColorSpaceSpectral) but
//   is a bare text or a repeated element counts as missing; so does a CxF:L, CxF:A or CxF:B
//   that is not a bare text (it reads as 0). An entry of a patch array that is a bare text is a
//   patch without values.
// - A single CxF:ReflectancePoint (which the reader does not turn into an array) is a curve of
//   one point; a point without attributes (a bare text) has wavelength 0.
// - Patches of a project should share one wavelength set: the averaged curve is sized by the
//   first patch, the extra points of a later, longer patch are ignored, and a shorter one adds
//   what it has.
// - Documents larger than kMaxCxFDocumentBytes are refused as invalid XML before parsing.

#include "XMLNode.h"
#include "color_types.h"
#include "spectrum.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// Log lines, one for each structural refusal.
inline constexpr std::string_view kLogInvalidXMLData = "Invalid XML data";
inline constexpr std::string_view kLogNoCxFKey = "No 'CxF' key in XML data";
inline constexpr std::string_view kLogNoPaletteKey = "No 'Palette' key in XML data";
inline constexpr std::string_view kLogNoColorSetKey = "No 'ColorSet' key in XML data";

// The alert for measurements that were not made for D50 and the 2° observer.
inline constexpr std::string_view kAlertMeasurementConditionsTitle =
    "The specified Lab colors cannot be used for comparison.";
inline constexpr std::string_view kAlertMeasurementConditionsMessage =
    "The Lab colors were not specified with D50 illuminant and 2° observer.";
inline constexpr std::string_view kAlertOkButton = "Ok";

// For tools only: the application says nothing when a colour set holds no CxF:Color.
inline constexpr std::string_view kNoColorMessage = "No 'Color' key in XML data";

// Caption parts; the dashes are two U+2013 EN DASH.
inline constexpr std::string_view kUntitledPaletteName = "Untitled palette";
inline constexpr std::string_view kCaptionOnePatch = " –– one patch";
inline constexpr std::string_view kCaptionProjectWithOnePatch = " –– project with one patch";
// printf formats, with the patch count as a long.
inline constexpr char kCaptionPatchesAveragedFormat[] = "%ld patches averaged";
inline constexpr char kCaptionProjectPatchesAveragedFormat[] =
    " –– project with %ld patches averaged";

// The measurement conditions the comparison accepts.
inline constexpr std::string_view kAcceptedFieldOfView = "FieldOfView_2_Degree";
inline constexpr std::string_view kAcceptedIlluminant = "Illuminant_D50";

// Largest document read, 64 MiB: a project of 10,000 patches with 36 spectral points takes
// about 30 MiB. Bounds the memory that parsing can take.
inline constexpr std::size_t kMaxCxFDocumentBytes = std::size_t{64} << 20;

// The budget of a document while it is read (XMLReadLimits), from the largest real project
// with room to spare: a project of 10,000 patches with 36 spectral points has about 420,000
// elements and 370,000 attributes, about 230 bytes of text per patch, and nests 8 levels
// deep; one element carries at most a handful of attributes, and the whole format has fewer
// than a hundred distinct names. A document over budget
// is refused as invalid XML as soon as the budget runs out (docs/cxf-import.md).
inline constexpr std::size_t kMaxCxFElements = std::size_t{1} << 20;   // 1,048,576
inline constexpr std::size_t kMaxCxFAttributes = std::size_t{1} << 20; // in the whole document
inline constexpr std::size_t kMaxCxFNames = 4096; // distinct element and attribute names
inline constexpr std::size_t kMaxCxFAttributesPerElement = 64;
inline constexpr std::size_t kMaxCxFDepth = 64;
inline constexpr std::size_t kMaxCxFTextBytes = std::size_t{16} << 20;   // after trimming
inline constexpr std::size_t kMaxCxFParserBytes = std::size_t{16} << 20; // expat's own memory

// What happened to a document; each refusal is one row of the failure table.
enum class CxFImportStatus {
    Accepted,              // a sample, with lab, caption and patchCount
    InvalidXMLData,        // not well formed, or too large: log kLogInvalidXMLData, beep
    NoCxFKey,              // log kLogNoCxFKey
    NoPaletteKey,          // log kLogNoPaletteKey
    NoColorSetKey,         // log kLogNoColorSetKey
    MeasurementConditions, // not D50 and 2° (or either missing): beep, then the alert
    NoColor,               // no CxF:Color: stop silently
};

struct CxFAlert {
    std::string_view title;
    std::string_view message;
    std::string_view button;
};

struct CxFImportOutcome {
    CxFImportStatus status = CxFImportStatus::Accepted;
    // What the application reports, in this order. Empty, false or absent when nothing.
    std::string_view logLine;
    bool beep = false;
    std::optional<CxFAlert> alert;
    // Accepted documents only.
    LabColor lab{0, 0, 0, 1}; // D50 L*, a*, b*, alpha 1
    std::string caption;
    long patchCount = 0; // patches averaged; 0 when CxF:Color was neither a patch nor a list
    // For tools, never shown by the application: the parser's error with line and column, or
    // the size of a document that was too large.
    std::string detail;

    bool accepted() const noexcept { return status == CxFImportStatus::Accepted; }
};

// Reads text, a whole CxF document in UTF-8, through XMLReader::dictionaryForXMLString (so
// lines are trimmed and joined first), checks the measurement conditions and averages all
// patches, within the budget above. Never throws on bad input; every refusal is a status, and
// running out of memory while reading is InvalidXMLData too.
// Example: a one-patch document from an untitled palette whose patch is named "Sample A"
// with L 51.23, a −3.45, b 12.1 gives Accepted, caption "Sample A –– one patch", lab
// (51.229999542236328, −3.4500000476837158, 12.100000381469727, 1), patchCount 1.
CxFImportOutcome importCxFDocument(std::string_view text);

// The outcome for a document that gave no text (document_reading.h: unreadable, not a regular
// file, too large, not UTF-8): refused as invalid XML data, as the import refuses a nil text;
// detail says why.
CxFImportOutcome importUnreadableDocument(std::string detail);

// The text that says why a refused document was refused: its log line, or the alert message,
// or kNoColorMessage. Empty for an accepted one.
std::string_view refusalMessage(const CxFImportOutcome &outcome);

// Number of reflectance points under points: the items of an array, 1 for a single point node
// (a dictionary or a bare text), 0 for nullptr or an empty array.
std::size_t reflectancePointCount(const XMLNode *points);

// The mean reflectance curve of patches (the items of a CxF:Color list): as many entries as the
// first patch has points, each the sum of the patches' values at that position divided by the
// number of patches (patches without a curve count in the divisor). Extra points of a longer
// later patch are ignored; a shorter one adds what it has. Wavelengths are not filled in (they
// stay 0). *count, when count is not null, receives the number of entries. An empty buffer
// when the first patch has no points or memory runs out.
// Example: curves (400: 0.2, 410: 0.4) and (400: 0.4, 410: 0.8, 420: 0.9) give values
// 0.30000000447034836 and 0.60000000894069672 (the means of the float values).
SpectrumBuffer averageReflectanceCurve(std::span<const XMLNode> patches, std::size_t *count);

// A new Spectrum with one entry per reflectance point, in document order: wavelength = the
// 32-bit integer value of the point's "Wavelength" (a negative value wraps modulo 2^32), value =
// the float value of its "text", widened. A point that is a bare text has wavelength 0 and that
// text as its value. Returns an empty buffer when there are no points or memory runs out.
// Example: points [{Wavelength: 400, text: 0.1}, {Wavelength: 410, text: 0.25}] give
// {400, 0.10000000149011612}, {410, 0.25}.
SpectrumBuffer createSpectralFromReflectancePoints(const XMLNode *points);
