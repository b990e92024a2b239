#!/usr/bin/env python3
"""Writes the colour library's CIE tables (color/data/*.h) from the CSVs in data/cie/.

Run once after a CSV changes:  python3 scripts/generate_cie_tables.py
The headers are checked in, so a build needs nothing but the repository. Every value is copied
as the CSV prints it (a C++ literal and strtod give the same double for the same text), and
tests/color/cie_tables_test.cpp compares each compiled row with the CSV again.
"""

import csv
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
CSV_DIR = ROOT / "data" / "cie"
OUT_DIR = ROOT / "color" / "data"

# One entry per table: CSV file, expected header, first and last grid value with the step,
# row struct, table name, count name, column comment, source lines.
TABLES = [
    dict(
        csv="cie1931_2deg_cmf_1nm.csv",
        header=["wavelength", "xbar", "ybar", "zbar"],
        grid=(360, 830, 1),
        struct="ColorMatchingRow",
        name="gCIE1931StandardObserver2deg_1nm",
        count="gNumCIE1931StandardObserver2deg_1nm",
        columns="{wavelength nm, x̄, ȳ, z̄}",
        title="CIE 1931 standard colorimetric observer (2°), 360 to 830 nm at 1 nm.",
        source=[
            "Source: [ISO11664-1] ISO/CIE 11664-1:2019, 1 nm table of the 1931 observer,",
            "7 significant digits. Column sums 106.865469489595, 106.856917101172,",
            "106.892251278636 as printed there.",
        ],
    ),
    dict(
        csv="cie1964_10deg_cmf_5nm.csv",
        header=["wavelength", "xbar", "ybar", "zbar"],
        grid=(380, 780, 5),
        struct="ColorMatchingRow",
        name="gCIE1964StandardObserver10deg_5nm",
        count="gNumCIE1964StandardObserver10deg_5nm",
        columns="{wavelength nm, x̄10, ȳ10, z̄10}",
        title="CIE 1964 standard colorimetric observer (10°), 380 to 780 nm at 5 nm.",
        source=[
            "Source: [CIE015-2004] Table T.5 (6 decimals), not the 1 nm table sampled at 5 nm.",
        ],
    ),
    dict(
        csv="cie_daylight_basis_S0_S1_S2_5nm.csv",
        header=["wavelength", "S0", "S1", "S2"],
        grid=(300, 830, 5),
        struct="DaylightBasisRow",
        name="gSLambdaConstants",
        count="gNumSLambdaConstants",
        columns="{wavelength nm, S0, S1, S2}",
        title="Components of daylight for the CIE D illuminants, 300 to 830 nm at 5 nm.",
        source=[
            "Source: [CIE015-2004] Table T.2; the 5 nm rows between the 10 nm ones are the",
            "linear interpolations printed there.",
        ],
    ),
    dict(
        csv="cie_illuminant_A_5nm.csv",
        header=["wavelength", "A"],
        grid=(300, 780, 5),
        struct="Spectrum",
        name="gStandardIlluminantSpectrum_A",
        count="gNumStandardIlluminantSpectrum_A",
        columns="{wavelength nm, relative power}",
        title="CIE standard illuminant A, 300 to 780 nm at 5 nm, 100 at 560 nm.",
        source=["Source: [CIE015-2004] Table T.1."],
    ),
    dict(
        csv="cie_illuminant_D65_5nm.csv",
        header=["wavelength", "D65"],
        grid=(300, 830, 5),
        struct="Spectrum",
        name="gStandardIlluminantSpectrum_D65",
        count="gNumStandardIlluminantSpectrum_D65",
        columns="{wavelength nm, relative power}",
        title="CIE standard illuminant D65, 300 to 830 nm at 5 nm, 100 at 560 nm.",
        source=[
            "Source: [CIE-SCT] sheet \"D65\"; 300 to 780 nm as in [CIE015-2004] Table T.1.",
        ],
    ),
    dict(
        csv="cie1931_spectral_locus_xy_1nm.csv",
        header=["wavelength", "x", "y"],
        grid=(360, 830, 1),
        struct="LocusChromaticity",
        name="gCIE1931_nm_xy",
        count="gNum_CIE1931_nm_xy",
        columns="{wavelength nm, x, y}",
        title="Spectrum locus of the CIE 1931 observer, 360 to 830 nm at 1 nm.",
        source=[
            "Source: [CVRL] \"CIE 1931 2-deg xyz chromaticity coordinates\", 1 nm, 6 decimals",
            "(z left out). From 699 nm on every row is the 699 nm point, as published.",
        ],
        bounds=True,
    ),
    dict(
        csv="robertson_isotemperature_lines.csv",
        header=["mired", "u", "v", "t"],
        grid=None,  # 0 to 100 by 10, then 125 to 600 by 25
        struct="IsoTemperatureLine",
        name="gIsoTempData",
        count="gNumIsoTempData",
        columns="{reciprocal megakelvin, u, v, slope t}",
        title="Robertson's isotemperature lines: CIE 1960 u, v of the Planckian locus point",
        source=[
            "and the slope t of the isotherm through it.",
            "Source: [Robertson1968] as tabulated in [Wyszecki1982] Table 1(3.11), with",
            "u = 0.24792 at 325 mired where the book misprints 0.24702 (docs/references.md).",
        ],
    ),
]

ROBERTSON_MIREDS = list(range(0, 101, 10)) + list(range(125, 601, 25))


def read_rows(table):
    with open(CSV_DIR / table["csv"], newline="") as f:
        rows = list(csv.reader(f))
    if rows[0] != table["header"]:
        sys.exit(f"{table['csv']}: header {rows[0]}, expected {table['header']}")
    rows = rows[1:]
    keys = [int(r[0]) for r in rows]
    if table["grid"]:
        first, last, step = table["grid"]
        expected = list(range(first, last + 1, step))
    else:
        expected = ROBERTSON_MIREDS
    if keys != expected:
        sys.exit(f"{table['csv']}: first column is not the expected grid")
    for r in rows:
        if len(r) != len(table["header"]):
            sys.exit(f"{table['csv']}: row {r[0]} has {len(r)} columns")
        for token in r[1:]:
            float(token)  # must parse
    return rows


def double_literal(token):
    """The CSV text as a double literal: the same digits, '.0' added to integers."""
    return token if ("." in token or "e" in token.lower()) else token + ".0"


def row_literal(table, row):
    if table["struct"] == "IsoTemperatureLine":
        return "{" + ", ".join(double_literal(t) for t in row) + "}"
    return "{" + row[0] + ", " + ", ".join(double_literal(t) for t in row[1:]) + "}"


def header_text(table, rows):
    stem = table["csv"][: -len(".csv")]
    out = [
        "#pragma once",
        "// Generated by scripts/generate_cie_tables.py; do not edit.",
        f"// From data/cie/{table['csv']}.",
        f"// {table['title']}",
    ]
    out += [f"// {line}" for line in table["source"]]
    out += [
        "",
        '#include "cie_table_rows.h"' if table["struct"] != "Spectrum" else '#include "spectrum.h"',
        "",
        "#include <cstddef>",
        "#include <iterator>",
        "",
        f"// {table['columns']}",
        "// clang-format off",
        f"inline constexpr {table['struct']} {table['name']}[] = {{",
    ]
    out += [f"    {row_literal(table, r)}," for r in rows]
    out += [
        "};",
        "// clang-format on",
    ]
    count = f"inline constexpr size_t {table['count']} = std::size({table['name']});"
    if len(count) > 100:  # the column limit of .clang-format
        count = count.replace("= ", "=\n    ", 1)
    out.append(count)
    if table.get("bounds"):
        xs = [r[1] for r in rows]
        ys = [r[2] for r in rows]
        lo_x, hi_x = min(xs, key=float), max(xs, key=float)
        lo_y, hi_y = min(ys, key=float), max(ys, key=float)
        out += [
            "",
            "// Bounds of the locus over the whole table (x at 504 nm and 699 to 830 nm,",
            "// y at 404 nm and 521 nm).",
            f"inline constexpr double {table['name']}_min_x = {double_literal(lo_x)};",
            f"inline constexpr double {table['name']}_max_x = {double_literal(hi_x)};",
            f"inline constexpr double {table['name']}_min_y = {double_literal(lo_y)};",
            f"inline constexpr double {table['name']}_max_y = {double_literal(hi_y)};",
        ]
    return stem, "\n".join(out) + "\n"


def main():
    OUT_DIR.mkdir(parents=True, exist_ok=True)
    for table in TABLES:
        stem, text = header_text(table, read_rows(table))
        (OUT_DIR / f"{stem}.h").write_text(text)
        print(f"color/data/{stem}.h")


if __name__ == "__main__":
    main()
