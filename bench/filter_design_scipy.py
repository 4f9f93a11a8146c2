#!/usr/bin/python3
"""The 255-tap band-pass design of filter_design_bench in scipy: firwin with a
Kaiser window (β = 5), 16-bit quantisation, freqz of both coefficient sets on
4096 points, dB magnitude and unwrapped phase. Prints the median microseconds
on its last line."""
import sys
import time

import numpy as np
from scipy import signal


def design():
    h = signal.firwin(255, [0.3, 0.7], window=("kaiser", 5.0), pass_zero=False)
    full = 2 ** 15 - 1
    q = np.round(h / h.max() * full)
    hp = q / q.max() * h.max()
    _, Hq = signal.freqz(hp, worN=4096, whole=True)
    _, H = signal.freqz(h, worN=4096, whole=True)
    db = 20 * np.log10(np.abs(Hq[:2048]))
    phase = np.unwrap(np.angle(H[:2048]))
    return db, phase


def main():
    repeats = int(sys.argv[1]) if len(sys.argv) > 1 else 300
    design()
    times = []
    for _ in range(repeats):
        t0 = time.perf_counter()
        design()
        times.append((time.perf_counter() - t0) * 1e6)
    print(float(np.median(times)))


if __name__ == "__main__":
    main()
