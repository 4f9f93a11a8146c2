#!/usr/bin/python3
"""The signal benchmark's jobs done with numpy/scipy, for comparison.

  signal_jobs.py <job> [repeats]
jobs:
  design     cosine sum, M = 14, plus Box-Muller noise, and its spectrum
  sumfilter  16384 samples through a 255-tap filter (direct convolution) and two spectra
  multirate  L = 10, M = 3 with a 255-tap filter (scipy.signal.upfirdn) and two spectra
  upfirdn    the filtering alone: upfirdn(h, x, 10, 3), all ~54600 outputs
  upfirdn-kept  the same on the input prefix that yields the ~16400 outputs the model keeps
Prints the median time in microseconds on the last line.
"""
import sys
import time
import numpy as np
from scipy.signal import upfirdn

N = 16384
rng = np.random.default_rng(1)
x = rng.uniform(-1, 1, N)
h = np.hanning(257)[1:-1]
h /= h.sum()


def design():
    fs, a, fa, phi, m_count, sigma = 300.0, 1.0, 10.0, 0.3, 14, 0.1
    t = np.arange(N) * (1.0 / fs)
    acc = np.zeros(N)
    for m in range(1, m_count + 1):
        acc += np.cos(t * (np.pi * 2 * m * fa) + phi)
    s = acc * a
    u1 = rng.integers(0, 2**31, N) * 2.0**-31
    u2 = rng.integers(0, 2**31, N) * 2.0**-31
    y = s + sigma * np.sqrt(2 * np.log(1 / (1 - u1))) * np.cos(2 * np.pi * u2)
    mag = np.abs(np.fft.fft(y)) / N
    return y.max(), y.min(), mag.max(), mag.min()


def spectra(a, b):
    return np.abs(np.fft.fft(a)) / N, np.abs(np.fft.fft(b)) / N


def sumfilter():
    y = np.convolve(x, h)[254 : 254 + N - 256]
    return spectra(x, np.concatenate([y, np.zeros(256)]))


def multirate():
    v = upfirdn(h, x, up=10, down=3)
    return spectra(x, v[:N])


def upfirdn_only():
    return upfirdn(h, x, up=10, down=3)


def upfirdn_kept():
    # Outputs 0..16383 of the model reach input sample (3*16383 + 254) / 10.
    return upfirdn(h, x[: (3 * (N - 1) + 254) // 10 + 1], up=10, down=3)


jobs = {"design": design, "sumfilter": sumfilter, "multirate": multirate, "upfirdn": upfirdn_only,
        "upfirdn-kept": upfirdn_kept}
job = jobs[sys.argv[1]]
repeats = int(sys.argv[2]) if len(sys.argv) > 2 else 200
job()
times = []
for _ in range(repeats):
    t0 = time.perf_counter()
    job()
    times.append((time.perf_counter() - t0) * 1e6)
print("%.1f" % float(np.median(times)))
