#!/usr/bin/python3
"""Magnitude spectrum reference for tests/dsp/signals_test.

Reads samples (whitespace separated) from stdin, zero-pads or cuts them to
16384, and prints |FFT|/16384 for all 16384 bins, then the largest and the
smallest of them.
"""
import sys
import numpy as np

x = np.array(sys.stdin.read().split(), dtype=np.float64)
buf = np.zeros(16384)
buf[: min(len(x), 16384)] = x[:16384]
mag = np.abs(np.fft.fft(buf)) / 16384.0
sys.stdout.write("\n".join("%.17g" % v for v in mag) + "\n")
print("%.17g\n%.17g" % (mag.max(), mag.min()))
