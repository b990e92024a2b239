#include "QColorSpace+QVExtras.h"

#include "lab_colorspaces.h"

#include <QGuiApplication>

// CXF_HAVE_XCB: set by the build when the xcb headers are there.
#if defined(CXF_HAVE_XCB) && QT_CONFIG(xcb)
#define CXF_READS_X11_PROFILE 1
#include <xcb/xcb.h>
#endif

#include <algorithm>
#include <cstdlib>
#include <map>
#include <mutex>
#include <utility>

std::optional<QVColorSpace> QVColorSpace::withSharedProfile(cmsHPROFILE profile)
{
    if (!profile)
        return std::nullopt;
    QVColorSpace space;
    space.m_profile = std::shared_ptr<void>(profile, [](void *) {});
    return space;
}

std::optional<QVColorSpace> QVColorSpace::fromIccProfile(const QByteArray &icc)
{
    if (icc.isEmpty())
        return std::nullopt;
    cmsHPROFILE profile = cmsOpenProfileFromMem(
        icc.constData(), cmsUInt32Number(std::min<qsizetype>(icc.size(), qsizetype(UINT32_MAX))));
    if (!profile)
        return std::nullopt;
    QVColorSpace space;
    space.m_profile = std::shared_ptr<void>(profile, [](void *p) { cmsCloseProfile(p); });
    space.m_icc = icc;
    return space;
}

cmsColorSpaceSignature QVColorSpace::dataColorSpace() const
{
    return cmsGetColorSpace(profile());
}

namespace {

std::optional<QVColorSpace> cachedSpace(std::optional<QVColorSpace> &cache, cmsHPROFILE (*make)())
{
    if (!cache)
        cache = QVColorSpace::withSharedProfile(make());
    return cache;
}

} // namespace

std::optional<QVColorSpace> calibratedD50LabColorSpace()
{
    static std::optional<QVColorSpace> space;
    return cachedSpace(space, CGColorSpaceD50Lab);
}

std::optional<QVColorSpace> calibratedD65LabColorSpace()
{
    static std::optional<QVColorSpace> space;
    return cachedSpace(space, CGColorSpaceD65Lab);
}

QByteArray mainScreenIccProfile()
{
#ifdef CXF_READS_X11_PROFILE
    const auto *x11 =
        qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    xcb_connection_t *connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return {};
    // The default screen is the one $DISPLAY names (":0.1" is screen 1).
    char *host = nullptr;
    int displayNumber = 0, screenNumber = 0;
    if (xcb_parse_display(nullptr, &host, &displayNumber, &screenNumber))
        std::free(host);
    else
        screenNumber = 0;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    if (!screens.data)
        return {};

    static const char name[] = "_ICC_PROFILE";
    xcb_intern_atom_reply_t *atom = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 1, sizeof name - 1, name), nullptr);
    if (!atom)
        return {};
    const xcb_atom_t property = atom->atom;
    std::free(atom);
    if (property == XCB_ATOM_NONE)
        return {}; // no client ever made the atom: no profile

    // Up to 64 MiB (the length is counted in 32-bit units).
    xcb_get_property_reply_t *reply =
        xcb_get_property_reply(connection,
                               xcb_get_property(connection, 0, screens.data->root, property,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, 16 * 1024 * 1024),
                               nullptr);
    if (!reply)
        return {};
    QByteArray icc;
    if (reply->format == 8)
        icc = QByteArray(static_cast<const char *>(xcb_get_property_value(reply)),
                         xcb_get_property_value_length(reply));
    std::free(reply);
    return icc;
#else
    return {};
#endif
}

std::optional<QVColorSpace> colorSpaceForMainScreen()
{
    return QVColorSpace::fromIccProfile(mainScreenIccProfile());
}

namespace {

// Transforms from a Lab profile to an RGB one, kept for the process, keyed by the Lab profile
// and the destination's bytes (empty: sRGB).
cmsHTRANSFORM labToRGBTransform(cmsHPROFILE lab, const std::optional<QVColorSpace> &destination)
{
    static std::mutex mutex;
    static std::map<std::pair<cmsHPROFILE, QByteArray>, cmsHTRANSFORM> transforms;
    const QByteArray key = destination ? destination->iccProfile() : QByteArray();
    const std::scoped_lock lock(mutex);
    const auto found = transforms.find({lab, key});
    if (found != transforms.end())
        return found->second;
    cmsHTRANSFORM transform = nullptr;
    if (destination) {
        transform = cmsCreateTransform(lab, TYPE_Lab_DBL, destination->profile(), TYPE_RGB_DBL,
                                       INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE);
    } else {
        cmsHPROFILE sRGB = cmsCreate_sRGBProfile();
        transform = cmsCreateTransform(lab, TYPE_Lab_DBL, sRGB, TYPE_RGB_DBL,
                                       INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE);
        cmsCloseProfile(sRGB); // the transform keeps what it needs
    }
    if (transform)
        transforms.emplace(std::pair{lab, key}, transform);
    return transform;
}

} // namespace

std::optional<std::array<double, 3>> rgbFromLab(const QVColorSpace &labSpace,
                                                const std::array<double, 3> &lab, bool toDisplay)
{
    std::optional<QVColorSpace> display;
    if (toDisplay) {
        display = colorSpaceForMainScreen();
        if (display && display->dataColorSpace() != cmsSigRgbData)
            display.reset();
    }
    cmsHTRANSFORM transform = labToRGBTransform(labSpace.profile(), display);
    if (!transform && display) // a display profile LittleCMS cannot use as output
        transform = labToRGBTransform(labSpace.profile(), std::nullopt);
    if (!transform)
        return std::nullopt;
    const cmsCIELab in = {lab[0], lab[1], lab[2]};
    std::array<double, 3> rgb = {0, 0, 0};
    cmsDoTransform(transform, &in, rgb.data(), 1);
    for (double &channel : rgb)
        channel = std::clamp(channel, 0.0, 1.0);
    return rgb;
}
