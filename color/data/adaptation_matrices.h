#pragma once
// Cone-response matrices for von Kries-type chromatic adaptation: nine doubles, row-major,
// XYZ (column) to cone space. Only the first three are used by adapt_XYZ_to_XYZ; the others
// are offered to library users.
// Sources: [Lindbloom] (XYZ scaling, von Kries, Bradford [Lam1985]); [Li2002] (CMCCAT2000);
// [CIE159-2004] (CAT02); [Hunt2004] (Hunt-Pointer-Estevez); [Finlayson2000] (Sharp).

// {row 1, row 2, row 3}
// clang-format off
inline constexpr double Linear_Matrix[9] = {
    1, 0, 0,
    0, 1, 0,
    0, 0, 1,
};
inline constexpr double VonKries_Matrix[9] = {
    0.40024, 0.7076, -0.08081,
    -0.2263, 1.16532, 0.0457,
    0, 0, 0.91822,
};
inline constexpr double Bradford_Matrix[9] = {
    0.8951, 0.2664, -0.1614,
    -0.7502, 1.7135, 0.0367,
    0.0389, -0.0685, 1.0296,
};
inline constexpr double CMCCAT2000_Matrix[9] = {
    0.7982, 0.3389, -0.1371,
    -0.5918, 1.5512, 0.0406,
    0.0008, 0.0239, 0.9753,
};
inline constexpr double CIECAT02_Matrix[9] = {
    0.7328, 0.4296, -0.1624,
    -0.7036, 1.6975, 0.0061,
    0.003, 0.0136, 0.9834,
};
inline constexpr double HPE_Matrix[9] = {
    0.3897, 0.689, -0.0787,
    -0.2298, 1.1834, 0.0464,
    0, 0, 1,
};
inline constexpr double Sharp_Matrix[9] = {
    1.2694, -0.0988, -0.1706,
    -0.8364, 1.8006, 0.0357,
    0.0297, -0.0315, 1.0018,
};
// clang-format on
