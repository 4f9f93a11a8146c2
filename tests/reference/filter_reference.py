#!/usr/bin/python3
"""Independent reference values for the FIR designer's numerical core.

Usage:
  filter_reference.py window N NAME:PARAM...  -> N window values per window, one after another
  filter_reference.py idft N                -> stdin: N spectrum values; prints the
                                               centred inverse DFT by a direct numpy sum
  filter_reference.py response              -> stdin: coefficients; prints 4096 dB values
                                               then 4096 wrapped phases (numpy FFT)
Windows come from scipy.signal.windows where its definition is ours; the others
are evaluated from their published formulas in numpy.
"""
import math
import sys

import numpy as np
from scipy.signal import windows


def cosine_sum(a, n):
    x = np.arange(n) / (n - 1)
    return sum(((-1) ** j) * aj * np.cos(2 * np.pi * j * x) for j, aj in enumerate(a))


def bessel_i0_series(y):
    return sum((y / 2.0) ** (2 * k) / float(math.factorial(k)) ** 2 for k in range(11))


def window(name, n, p):
    x = np.arange(n) / (n - 1)
    flattop = cosine_sum([1.0, 1.93, 1.29, 0.388, 0.032], n)
    return {
        "rectangular": lambda: np.ones(n),
        "blackman": lambda: windows.blackman(n, sym=True),
        "hamming": lambda: windows.hamming(n, sym=True),
        "hann": lambda: windows.hann(n, sym=True),
        "blackmanharris": lambda: windows.blackmanharris(n, sym=True),
        "cosine": lambda: np.sin(np.pi * x),
        # Nuttall's own four-term window (scipy's "nuttall" is the Blackman-Nuttall one).
        "nutall": lambda: cosine_sum([0.355768, 0.487396, 0.144232, 0.012604], n),
        "blackmannutall": lambda: windows.nuttall(n, sym=True),
        "flattop": lambda: flattop / flattop.max(),
        "kaiser": lambda: windows.kaiser(n, p, sym=True),
        "kaiserseries": lambda: bessel_i0_series(p * np.sqrt(1 - (2 * x - 1) ** 2)) / bessel_i0_series(p),
        "chebyshev": lambda: windows.chebwin(n, 20.0 * p, sym=True),
    }[name]()


def read_stdin():
    return np.array([float(v) for v in sys.stdin.read().split()])


def main():
    what = sys.argv[1]
    if what == "window":
        n = int(sys.argv[2])
        parts = [a.split(":") for a in sys.argv[3:]]
        out = np.concatenate([window(name, n, float(p)) for name, p in parts])
    elif what == "idft":
        n = int(sys.argv[2])
        H = read_stdin()
        k = np.arange(n)
        s = np.array([np.sum(H * np.cos(2 * np.pi * kk * k / n)) / n for kk in k])
        out = np.empty(n)
        out[(k + (n - 1) // 2) % n] = s
    elif what == "response":
        c = read_stdin()
        X = np.fft.fft(c, 4096)
        for k in range(4096):
            if abs(X[k].real) <= 1e-10 and abs(X[k].imag) <= 1e-10:
                X[k] = X[1] if k == 0 else X[k - 1]
        with np.errstate(divide="ignore", invalid="ignore"):
            out = np.concatenate((20 * np.log10(np.abs(X)), np.arctan(X.imag / X.real)))
    else:
        raise SystemExit("unknown request " + what)
    print(" ".join(repr(float(v)) for v in out))


if __name__ == "__main__":
    main()
