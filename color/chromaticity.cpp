#include "chromaticity.h"

XYZTriple XYZ_from_xy(double x, double y)
{
    if (y == 0)
        return {0, 0, 0};
    return {x / y, 1, (1 - x - y) / y};
}
