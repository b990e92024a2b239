#!/usr/bin/env python3
"""Writes the sample CxF documents of data/samples/.

Each patch has a smooth reflectance curve from 380 to 730 nm at 10 nm (36 points, as handheld
spectrophotometers report them) and the CIELAB values of that curve:
XYZ by plain summation at 10 nm over the same range with the CIE 1931 2° observer
(data/cie/cie1931_2deg_cmf_1nm.csv) and the illuminant named in the document (D50 from the
CIE daylight components of data/cie/cie_daylight_basis_S0_S1_S2_5nm.csv, D65 from
data/cie/cie_illuminant_D65_5nm.csv), normalised so that the perfect reflector has Y = 100,
then CIELAB [CIE015-2004] relative to the same sums for the perfect reflector.
Values are rounded as instruments export them: reflectance to 4 decimals, Lab to 2.

Run from the repository root: python3 scripts/make_sample_cxf.py
"""
import csv
import math
import os

WAVELENGTHS = list(range(380, 731, 10))


def read_table(path):
    with open(path) as f:
        rows = list(csv.reader(f))
    return {int(r[0]): [float(v) for v in r[1:]] for r in rows[1:]}


CMF = read_table("data/cie/cie1931_2deg_cmf_1nm.csv")
DAYLIGHT = read_table("data/cie/cie_daylight_basis_S0_S1_S2_5nm.csv")
D65 = read_table("data/cie/cie_illuminant_D65_5nm.csv")


def d50(wavelength):
    # CIE 15:2004 §3.1: D50 is the daylight illuminant of 5000 × 1.4388 / 1.4380 K, with
    # M1 and M2 rounded to three decimals.
    t = 5000 * 1.4388 / 1.4380
    xd = -4.6070e9 / t**3 + 2.9678e6 / t**2 + 0.09911e3 / t + 0.244063
    yd = -3.000 * xd * xd + 2.870 * xd - 0.275
    m = 0.0241 + 0.2562 * xd - 0.7341 * yd
    m1 = round((-1.3515 - 1.7703 * xd + 5.9114 * yd) / m, 3)
    m2 = round((0.0300 - 31.4424 * xd + 30.0717 * yd) / m, 3)
    s0, s1, s2 = DAYLIGHT[wavelength]
    return s0 + m1 * s1 + m2 * s2


ILLUMINANTS = {"Illuminant_D50": d50, "Illuminant_D65": lambda w: D65[w][0]}


def xyz(reflectance, illuminant):
    s = ILLUMINANTS[illuminant]
    k = 100 / sum(s(w) * CMF[w][1] for w in WAVELENGTHS)
    return [k * sum(s(w) * r * CMF[w][i] for w, r in zip(WAVELENGTHS, reflectance))
            for i in range(3)]


def lab(reflectance, illuminant):
    white = xyz([1.0] * len(WAVELENGTHS), illuminant)
    def f(t):
        return t ** (1 / 3) if t > (6 / 29) ** 3 else t / (3 * (6 / 29) ** 2) + 4 / 29
    fx, fy, fz = (f(v / n) for v, n in zip(xyz(reflectance, illuminant), white))
    return 116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz)


def curve(low, high, edge, width, dip=0.0, dip_at=450):
    """A reflectance that rises from low to high around edge (nm), with an optional dip."""
    return [round(low + (high - low) / (1 + math.exp(-(w - edge) / width))
                  - dip * math.exp(-((w - dip_at) / 30) ** 2), 4) for w in WAVELENGTHS]


def patch_xml(name, reflectance, illuminant, indent):
    L, a, b = lab(reflectance, illuminant)
    pad = " " * indent
    lines = [f'{pad}<CxF:Color ColorName="{name}">' if name else f"{pad}<CxF:Color>",
             f"{pad}  <CxF:ColorSpaceCIELab>",
             f"{pad}    <CxF:L>{L:.2f}</CxF:L>",
             f"{pad}    <CxF:A>{a:.2f}</CxF:A>",
             f"{pad}    <CxF:B>{b:.2f}</CxF:B>",
             f"{pad}  </CxF:ColorSpaceCIELab>",
             f"{pad}  <CxF:ColorSpaceSpectral>"]
    lines += [f'{pad}    <CxF:ReflectancePoint Wavelength="{w}">{r:.4f}</CxF:ReflectancePoint>'
              for w, r in zip(WAVELENGTHS, reflectance)]
    lines += [f"{pad}  </CxF:ColorSpaceSpectral>", f"{pad}</CxF:Color>"]
    return lines


def document(set_name, patches, illuminant, description, date):
    lines = ['<?xml version="1.0" encoding="UTF-8"?>',
             '<CxF:CxF xmlns:CxF="http://colorexchangeformat.com/CxF2">',
             "  <CxF:FileInformation>",
             "    <CxF:Creator>CxF Compare sample set</CxF:Creator>",
             f"    <CxF:CreationDate>{date}</CxF:CreationDate>",
             f"    <CxF:Description>{description}</CxF:Description>",
             "  </CxF:FileInformation>",
             "  <CxF:Palette>",
             f'    <CxF:ColorSet ColorSetName="{set_name}">',
             "      <CxF:CollectionColorSpaceSpecification>",
             "        <CxF:ColorSpaceSpecificationSpectrumTristimulus>",
             "          <CxF:MeasurementMode>M0</CxF:MeasurementMode>",
             "          <CxF:FieldOfView>FieldOfView_2_Degree</CxF:FieldOfView>",
             "          <CxF:IlluminationOptions>",
             f"            <CxF:Illuminant>{illuminant}</CxF:Illuminant>",
             "          </CxF:IlluminationOptions>",
             "        </CxF:ColorSpaceSpecificationSpectrumTristimulus>",
             "      </CxF:CollectionColorSpaceSpecification>"]
    for name, reflectance in patches:
        lines += patch_xml(name, reflectance, illuminant, 6)
    lines += ["    </CxF:ColorSet>", "  </CxF:Palette>", "</CxF:CxF>", ""]
    return "\n".join(lines)


SAMPLES = {
    "sample-a.cxf": document(
        "Untitled palette", [("Sample A", curve(0.062, 0.512, 592, 14, 0.012))],
        "Illuminant_D50", "One patch measured on a coated sheet", "2024-05-14T10:32:07"),
    "sample-b.cxf": document(
        "Untitled palette", [("Sample B", curve(0.071, 0.468, 601, 16, 0.004))],
        "Illuminant_D50", "One patch from the second press run", "2024-05-14T10:41:52"),
    "brand-reds-project.cxf": document(
        "Brand Reds", [("Red 1", curve(0.060, 0.520, 590, 14, 0.010)),
                       ("Red 2", curve(0.064, 0.505, 594, 13, 0.015)),
                       ("Red 3", curve(0.059, 0.515, 591, 15, 0.011)),
                       ("Red 4", curve(0.063, 0.509, 593, 14, 0.013))],
        "Illuminant_D50", "Four readings of the brand red across the sheet",
        "2024-05-14T11:05:30"),
    "d65-measurement.cxf": document(
        "Press check", [("Red D65", curve(0.062, 0.512, 592, 14, 0.012))],
        "Illuminant_D65", "One patch measured for daylight D65", "2024-05-14T11:20:13"),
}

if __name__ == "__main__":
    for name, text in SAMPLES.items():
        with open(os.path.join("data/samples", name), "w", newline="\n") as f:
            f.write(text)
