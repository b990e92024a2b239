#pragma once
// Spectra: contiguous arrays of samples at a fixed step. The count is not stored; it follows
// from the call that made the array. Creators return an owning buffer that frees the array
// with free() (it comes from calloc); an empty buffer means "no spectrum".

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

struct Spectrum {
    uint32_t wavelength; // nanometres
    double value;
};
static_assert(sizeof(Spectrum) == 16, "a sample is a 32-bit wavelength, a gap, and a double");

struct SpectrumFree {
    void operator()(Spectrum *samples) const noexcept { std::free(samples); }
};
using SpectrumBuffer = std::unique_ptr<Spectrum[], SpectrumFree>;

// n zeroed samples, or an empty buffer when n is 0 or memory runs out.
inline SpectrumBuffer allocate_spectrum(size_t n)
{
    if (n == 0)
        return SpectrumBuffer();
    return SpectrumBuffer(static_cast<Spectrum *>(std::calloc(n, sizeof(Spectrum))));
}
