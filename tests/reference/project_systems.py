#!/usr/bin/python3
"""Reference outputs of the two project systems, for tests/dsp.

  project_systems.py conv            stdin: line of taps h, line of input x
      y[i] = (h * x)[i + N_H - 1] for i < n - 4*ceil(N_H/4), zeros after.
  project_systems.py multirate L M   stdin: line of taps h, line of input x
      x upsampled by L with zeros and filtered (scipy.signal.upfirdn), read
      N_H - 1 ahead with the same zero tail over L*n samples, then every
      M-th sample; the first n outputs are printed.
"""
import sys
import numpy as np
from scipy.signal import upfirdn

lines = sys.stdin.read().strip().split("\n")
h = np.array(lines[0].split(), dtype=np.float64)
x = np.array(lines[1].split(), dtype=np.float64)
taps = len(h)
pad = (taps + 3) // 4 * 4

if sys.argv[1] == "conv":
    n = len(x)
    full = np.convolve(x, h)
    y = np.zeros(n)
    r = max(n - pad, 0)
    y[:r] = full[taps - 1 : taps - 1 + r]
else:
    L, M = int(sys.argv[2]), int(sys.argv[3])
    n = len(x)
    nl = L * n
    full = upfirdn(h, x, up=L, down=1)
    v = np.zeros(nl)
    r = max(nl - pad, 0)
    v[:r] = full[taps - 1 : taps - 1 + r]
    kept = v[::M]
    y = np.zeros(n)
    y[: min(n, len(kept))] = kept[:n]
sys.stdout.write("\n".join("%.17g" % v for v in y) + "\n")
