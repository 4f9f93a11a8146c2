#!/usr/bin/python3
"""The zeros of the 255-tap Hamming low pass of design_views_bench in numpy:
numpy.roots (the eigenvalues of the companion matrix, LAPACK). Prints the
median microseconds on its last line."""
import sys
import time

import numpy as np


def taps():
    n = np.arange(255) - 127
    return 0.25 * np.sinc(0.25 * n) * np.hamming(255)


def main():
    repeats = int(sys.argv[1]) if len(sys.argv) > 1 else 20
    h = taps()
    np.roots(h)
    times = []
    for _ in range(repeats):
        t0 = time.perf_counter()
        np.roots(h)
        times.append(time.perf_counter() - t0)
    print(f"{np.median(times) * 1e6:.1f}")


if __name__ == "__main__":
    main()
