#!/usr/bin/python3
"""Reference for the multirate system's automatic low pass.

  project_auto_filter.py L M
Ideal response with k = floor((255/max(L,M) + 1)/2) bins each side, its
inverse DFT centred at tap 127, times scipy's Dolph-Chebyshev window of
70 dB (peak 1). Prints the 255 taps.
"""
import sys
import numpy as np
from scipy.signal.windows import chebwin

L, M = int(sys.argv[1]), int(sys.argv[2])
N = 255
k = int(((1.0 / max(L, M)) * 255 + 1) * 0.5)
H = np.zeros(N)
H[: k + 1] = 1.0
H[N - k :] = 1.0
i = np.arange(N)
s = np.array([(H * np.cos(2 * np.pi * kk * i / N)).sum() / N for kk in range(N)])
impulse = np.roll(s, (N - 1) // 2)
h = chebwin(N, at=70) * impulse
sys.stdout.write("\n".join("%.17g" % v for v in h) + "\n")
