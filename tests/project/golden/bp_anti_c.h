// Orvana FIR coefficients of the filter design "bpAnti"
// Band Pass, Kaiser window (beta 5), N = 43, 12-bit integers
// Units KHz: cutoff 2.4, centre 9.6, sampling frequency 48
// Scale 9503.783629979027: coefficient = integer / scale

#ifndef BPANTI_TAPS_H
#define BPANTI_TAPS_H

#include <stdint.h>

#define BPANTI_TAPS 43
/* coefficient = bpAnti_taps[n] / BPANTI_SCALE */
#define BPANTI_SCALE 9503.783629979027

static const int16_t bpAnti_taps[BPANTI_TAPS] = {
    15,  0, -24,   -10,   -3,   -42,  0, 149,   124,   -145, -233, 0, 65,   -73,  227,
    669, 0, -1337, -1015, 1167, 2047, 0, -2047, -1167, 1015, 1337, 0, -669, -227, 73,
    -65, 0, 233,   145,   -124, -149, 0, 42,    3,     10,   24,   0, -15};

#endif /* BPANTI_TAPS_H */
