// Orvana FIR coefficients of the filter design "bpAnti"
// Band Pass, Kaiser window (beta 5), N = 43, 12-bit integers
// Units KHz: cutoff 2.4, centre 9.6, sampling frequency 48
// Scale 9503.783629979027: coefficient = integer / scale
// CMSIS-DSP table: the integers in time-reversed order, b[N-1] first, as the
// arm_fir_q15 functions expect.

#ifndef BPANTI_CMSIS_H
#define BPANTI_CMSIS_H

#include "arm_math.h"

#define BPANTI_NUM_TAPS 43
/* arm_fir_init_q15 takes an even numTaps: the table starts with one 0 (a zero
   last tap), so pass BPANTI_Q15_TAPS as numTaps. */
#define BPANTI_Q15_TAPS 44
/* State buffer for a block size of 32: numTaps + blockSize - 1 = 44 + 32 - 1 = 75 q15_t. */

static const q15_t bpAnti_coeffs[BPANTI_Q15_TAPS] = {
    0,    -15,  0, 24,   10,   3,     42,    0, -149, -124, 145,   233,   0, -65, 73,
    -227, -669, 0, 1337, 1015, -1167, -2047, 0, 2047, 1167, -1015, -1337, 0, 669, 227,
    -73,  65,   0, -233, -145, 124,   149,   0, -42,  -3,   -10,   -24,   0, 15};

#endif /* BPANTI_CMSIS_H */
