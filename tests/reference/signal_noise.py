#!/usr/bin/python3
"""Box-Muller reference for tests/dsp/gaussian_noise_test.

  signal_noise.py sigma mu < pairs
Reads lines "r1 r2" (integers 0..2^31-1) and prints, in long double,
mu + sigma*sqrt(2*ln(1/(1-U1)))*cos(2*pi*U2) with U = r*2^-31, one per line.
"""
import sys
import numpy as np

LD = np.longdouble
TWO_PI = LD("6.283185307179586476925286766559005768")

sigma, mu = LD(sys.argv[1]), LD(sys.argv[2])
pairs = np.array([line.split() for line in sys.stdin if line.strip()], dtype=np.int64)
u1 = pairs[:, 0].astype(LD) * LD(2) ** -31
u2 = pairs[:, 1].astype(LD) * LD(2) ** -31
radius = sigma * np.sqrt(2 * -np.log1p(-u1))
out = mu + radius * np.cos(TWO_PI * u2)
sys.stdout.write("\n".join("%.17g" % float(v) for v in out) + "\n")
