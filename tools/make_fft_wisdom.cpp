// Build step: measures the FFT plans the models use on this machine and saves
// FFTW's wisdom, which the programs load at start.
#include "dsp/real_fft.h"
#include "library/fft_tuning.h"

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: orvana-make-fft-wisdom <output file>\n");
        return 2;
    }
    const auto lengths = tunedFftLengths();
    if (!RealFft::measureWisdom(lengths, argv[1])) {
        std::fprintf(stderr, "orvana-make-fft-wisdom: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
