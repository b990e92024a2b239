#pragma once
// Colour spaces as LittleCMS profiles: the shared D50 and D65 Lab spaces, the display's own
// profile, and the transforms that take Lab colours to the display.

#include <QByteArray>

#include <lcms2.h>

#include <array>
#include <memory>
#include <optional>

// A colour space: a LittleCMS profile, shared between copies. A space made from profile bytes
// closes its profile with its last copy; one over a library space (the shared Lab spaces) never
// closes it.
class QVColorSpace
{
public:
    // Wraps a profile that lives for the whole process; never closed. Null gives no space.
    static std::optional<QVColorSpace> withSharedProfile(cmsHPROFILE profile);
    // Opens ICC profile bytes; no space when LittleCMS cannot read them.
    static std::optional<QVColorSpace> fromIccProfile(const QByteArray &icc);

    cmsHPROFILE profile() const { return m_profile.get(); }
    // The bytes it was read from; empty for a library space.
    QByteArray iccProfile() const { return m_icc; }
    // The profile's data colour space (cmsSigRgbData, cmsSigLabData, ...).
    cmsColorSpaceSignature dataColorSpace() const;

private:
    std::shared_ptr<void> m_profile;
    QByteArray m_icc;
};

// The D50 Lab space of the colour library (CGColorSpaceD50Lab: white of illuminant D50, black
// 0, a and b -128..128). Made on the first successful call and kept for the process; when the
// library has no space the result is empty and the next call tries again.
std::optional<QVColorSpace> calibratedD50LabColorSpace();
// The same for the D65 Lab space (CGColorSpaceD65Lab).
std::optional<QVColorSpace> calibratedD65LabColorSpace();

// The ICC profile the main display publishes: on X11 the _ICC_PROFILE property of the default
// screen's root window, as colour-managed desktops set it. Empty on other platforms, without a
// connection to the X server, or when no profile is set.
QByteArray mainScreenIccProfile();
// A new colour space from the main display's profile, or none (no profile, or one LittleCMS
// cannot read).
std::optional<QVColorSpace> colorSpaceForMainScreen();

// RGB of a Lab colour given in labSpace, through LittleCMS with the relative colorimetric
// intent (the Lab white is the destination's white), in the destination RGB space: the display
// profile when toDisplay and the display has a readable RGB profile, sRGB otherwise. Channels
// are clipped to 0..1. No result when the transform cannot be made. Transforms are made once
// per pair of profiles and kept.
std::optional<std::array<double, 3>> rgbFromLab(const QVColorSpace &labSpace,
                                                const std::array<double, 3> &lab, bool toDisplay);
