#!/usr/bin/python3
"""Writes FILE (tests/data/reference/maps.json): spherical splines of smooth fields, solved by SciPy.

Usage: map_reference.py FILE. Made with Debian 12's python3-scipy 1.10.

Perrin, Pernier, Bertrand and Echallier 1989: with G the kernel between electrodes, the field is
c0 + sum over j of cj g(cosine to electrode j), where (G + 1e-5) c + c0 = values and the cj add up to 0.
"""

import json
import sys

import numpy as np
from scipy import linalg, special

ORDER = 4
REGULARISATION = 1e-5
TERMS = 200


def cap(count: int, lowest: float) -> np.ndarray:
    """So many points, spread evenly over the sphere above z = lowest; x to the right, y to the nose, z up."""
    index = np.arange(count)
    z = 1 - (1 - lowest) * (index + 0.5) / count
    around = index * np.pi * (3 - np.sqrt(5))
    ring = np.sqrt(1 - z**2)
    return np.column_stack([ring * np.cos(around), ring * np.sin(around), z])


def kernel(cosine: np.ndarray) -> np.ndarray:
    total = np.zeros_like(cosine)
    for n in range(1, TERMS + 1):
        total += (2 * n + 1) / (n * (n + 1)) ** ORDER * special.eval_legendre(n, cosine)
    return total / (4 * np.pi)


def cosines(a: np.ndarray, b: np.ndarray) -> np.ndarray:
    return np.clip(a @ b.T, -1, 1)


def interpolate(electrodes: np.ndarray, values: np.ndarray, points: np.ndarray) -> np.ndarray:
    count = len(electrodes)
    system = np.ones((count + 1, count + 1))
    system[:count, :count] = kernel(cosines(electrodes, electrodes)) + REGULARISATION * np.eye(count)
    system[count, count] = 0
    solved = linalg.solve(system, np.append(values, 0))
    return kernel(cosines(points, electrodes)) @ solved[:count] + solved[count]


def smooth_field(points: np.ndarray) -> np.ndarray:
    """A broad hill at the back of the left side and a flatter valley in front, as of alpha, in µV²."""
    hill = np.array([-0.5, -0.7, 0.51])
    valley = np.array([0.2, 0.8, 0.57])
    hill, valley = hill / np.linalg.norm(hill), valley / np.linalg.norm(valley)
    return 5 + 30 * np.exp(3 * (points @ hill - 1)) - 4 * np.exp(2 * (points @ valley - 1))


def case(count: int) -> dict:
    electrodes = cap(count, -0.2)
    values = smooth_field(electrodes)
    points = cap(40, 0.0)
    left_out = [
        interpolate(np.delete(electrodes, i, 0), np.delete(values, i), electrodes[i : i + 1])[0]
        for i in range(count)
    ]
    return {
        "electrodes": electrodes.tolist(),
        "values": values.tolist(),
        "at_electrodes": interpolate(electrodes, values, electrodes).tolist(),
        "points": points.tolist(),
        "at_points": interpolate(electrodes, values, points).tolist(),
        "truth": smooth_field(points).tolist(),
        "left_out": left_out,
        "left_out_rms": float(np.sqrt(np.mean((np.array(left_out) - values) ** 2))),
    }


def rounded(value):
    if isinstance(value, list):
        return [rounded(item) for item in value]
    if isinstance(value, dict):
        return {key: rounded(item) for key, item in value.items()}
    return float(f"{value:.10g}") if isinstance(value, float) else value


with open(sys.argv[1], "w", encoding="utf-8") as file:
    json.dump(rounded({"cases": [case(count) for count in (19, 64, 128)]}), file, separators=(",", ":"))
    file.write("\n")
