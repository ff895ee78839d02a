"""Expected numbers of the control chart tests, by NumPy."""

import numpy as np

values = np.array([10.5, 11.3, 9.7, 10.1, 8.3, 12.9, 11.5])  # the missing one left out
mean, sd = values.mean(), values.std(ddof=1)
print("mean", repr(mean), "SD", repr(sd), "CV%", repr(100 * sd / mean))
print("limits", [10.2 + k * 0.8 for k in (-2, 2, -3, 3)])
