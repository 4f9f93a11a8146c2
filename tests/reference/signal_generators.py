#!/usr/bin/python3
"""Reference samples of the test signals, for tests/dsp/signals_test.

  signal_generators.py exact <kind> fs n a b c d
      the formula evaluated in long double with the phase reduced to
      [-1/2, 1/2] cycles: accurate to ~1e-15 anywhere in the record.

kinds and parameters a b c d:
  cos, sin          A fa phi -
  cossum, sinsum    A fa phi M   (harmonics 1..floor(M))
  mixer             A1 fa1 A2 fa2
  sinc, sinc2       beta - - -
Prints one sample per line with 17 significant digits.
"""
import sys
import numpy as np

LD = np.longdouble
TWO_PI = LD("6.283185307179586476925286766559005768")
PI = TWO_PI / 2


def turns(f_over_fs, k):
    c = f_over_fs * k
    return c - np.round(c)


def exact(kind, fs, n, a, b, c, d):
    k = np.arange(n, dtype=LD)
    fs = LD(fs)
    if kind in ("cos", "sin"):
        ang = TWO_PI * turns(LD(b) / fs, k) + LD(c)
        return LD(a) * (np.cos(ang) if kind == "cos" else np.sin(ang))
    if kind in ("cossum", "sinsum"):
        acc = np.zeros(n, dtype=LD)
        for m in range(1, int(np.floor(d)) + 1):
            ang = TWO_PI * turns(LD(b) * m / fs, k) + LD(c)
            acc += np.cos(ang) if kind == "cossum" else np.sin(ang)
        return LD(a) * acc
    if kind == "mixer":
        s1 = LD(a) * np.sin(TWO_PI * turns(LD(b) / fs, k))
        s2 = LD(c) * np.sin(TWO_PI * turns(LD(d) / fs, k))
        return s1 * s2
    if kind in ("sinc", "sinc2"):
        u = PI * LD(a) * k / fs
        r = np.ones(n, dtype=LD)
        r[1:] = np.sin(TWO_PI * turns(LD(a) / 2 / fs, k[1:])) / u[1:]
        return r if kind == "sinc" else r * r
    raise SystemExit("unknown kind " + kind)


def main():
    kind = sys.argv[2]
    fs = float(sys.argv[3])
    n = int(sys.argv[4])
    a, b, c, d = (float(v) for v in sys.argv[5:9])
    values = exact(kind, fs, n, a, b, c, d)
    sys.stdout.write("\n".join("%.17g" % float(v) for v in values) + "\n")


if __name__ == "__main__":
    main()
