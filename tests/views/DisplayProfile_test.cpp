// The swatch paints through the display's ICC profile when the X server publishes one on the
// root window (_ICC_PROFILE), and as sRGB otherwise. Runs under a virtual X server.
#include "BkgndColorView.h"

#include <QGuiApplication>

#include <gtest/gtest.h>
#include <lcms2.h>
#include <xcb/xcb.h>

#include <cstdlib>

namespace {

// An RGB display with the sRGB primaries and white but a linear response (gamma 1), written
// by LittleCMS.
QByteArray linearRGBProfile()
{
    const cmsCIExyY d65 = {0.3127, 0.3290, 1.0};
    const cmsCIExyYTRIPLE primaries = {{0.64, 0.33, 1}, {0.30, 0.60, 1}, {0.15, 0.06, 1}};
    cmsToneCurve *linear = cmsBuildGamma(nullptr, 1.0);
    cmsToneCurve *curves[3] = {linear, linear, linear};
    cmsHPROFILE profile = cmsCreateRGBProfile(&d65, &primaries, curves);
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    QByteArray bytes(qsizetype(size), '\0');
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    cmsFreeToneCurve(linear);
    return bytes;
}

// Sets (or, for null bytes, deletes) _ICC_PROFILE on the first screen's root window.
void publishProfile(const QByteArray &bytes)
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    ASSERT_NE(x11, nullptr) << "needs the xcb platform";
    xcb_connection_t *c = x11->connection();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    xcb_intern_atom_reply_t *atom =
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, 12, "_ICC_PROFILE"), nullptr);
    ASSERT_NE(atom, nullptr);
    const xcb_void_cookie_t done =
        bytes.isNull() ? xcb_delete_property_checked(c, root, atom->atom)
                       : xcb_change_property_checked(c, XCB_PROP_MODE_REPLACE, root, atom->atom,
                                                     XCB_ATOM_CARDINAL, 8, uint32_t(bytes.size()),
                                                     bytes.constData());
    std::free(atom);
    EXPECT_EQ(xcb_request_check(c, done), nullptr);
}

TEST(SwatchOnTheDisplay, FollowsTheProfileTheServerPublishes)
{
    // L* 50 grey: Y = ((50 + 16) / 116)³ = 0.184187. A linear display shows Y itself; sRGB
    // encodes it as 0.46634 [IEC61966-2-1], also for a property that is no profile.
    const struct {
        const char *what;
        QByteArray profile;
        double expected;
    } cases[] = {{"no profile", QByteArray(), 0.46634},
                 {"linear display", linearRGBProfile(), 0.184187},
                 {"not a profile", QByteArrayLiteral("not an ICC profile"), 0.46634},
                 {"profile removed", QByteArray(), 0.46634}};
    BkgndColorView view;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        publishProfile(c.profile);
        view.setLabColor({50, 0, 0, 1});
        EXPECT_NEAR(view.color().redF(), c.expected, 2e-3);
        EXPECT_NEAR(view.color().blueF(), c.expected, 2e-3);
    }
}

} // namespace
