# Independent grid-step choice in numpy float32: for each "span table count"
# line on stdin prints "step count" of the first table value c with
# ceil(|span / c|) <= count, or "none".
import sys

import numpy as np

TABLES = {
    "frequency": [0.1, 0.2, 0.25, 0.5, 1, 2, 5, 10, 20, 25, 50, 100, 200, 500, 1000, 2000, 5000, 10000, 20000],
    "general": [0.01, 0.05, 0.1, 0.2, 0.25, 0.5, 1, 2, 5, 10, 20, 25, 50, 100, 200, 500, 1000, 2000, 5000,
                10000, 20000],
    "decibel": [10, 20, 30, 40, 50, 60, 70, 80],
    "phase": [2, 5, 10, 20, 30, 40, 50, 100, 200, 300, 400, 500],
}

for line in sys.stdin:
    words = line.split()
    if len(words) != 3:
        continue
    span = np.float32(float(words[0]))
    limit = int(words[2])
    answer = "none"
    with np.errstate(all="ignore"):
        for c in TABLES[words[1]]:
            k = np.ceil(np.abs(span / np.float32(c)))
            if k <= limit:
                answer = "%r %d" % (float(np.float32(c)), int(k))
                break
    print(answer)
