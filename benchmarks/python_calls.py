"""What the Python package costs over the library: a single call through the
package against the bare ctypes call of the same entry point with its arguments
made beforehand, and a million plates through the array calls. Run with the
package and libraries at hand, for instance

    CORVANE_LIBRARY=build/release/src/interface/libcorvane.so.0 \\
        PYTHONPATH=python python3 benchmarks/python_calls.py

Prints medians of CPU time (time.process_time) over repetitions."""

import statistics
import time
from ctypes import addressof, byref, c_float, c_int32, create_string_buffer

import numpy as np

import corvane
from corvane import _convert, _library

TAPE = corvane.Ply(0.184, 161000.0, 11380.0, 5170.0, 0.32)
LAYUP = "(45/-45/0/90/0/90)2S"


def per_call(function, number, repeat=7):
    """Median CPU seconds per call."""
    times = []
    for _ in range(repeat):
        start = time.process_time()
        for _ in range(number):
            function()
        times.append((time.process_time() - start) / number)
    return statistics.median(times)


def bare_plate_loads(D):
    entry = _library.entry_point("LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS")
    values = (c_float * 14)(*_convert.matrix_values(D, "D"), 600.0, 200.0)
    at = addressof(values)
    arguments = [at, at + 36, at + 40, at + 44, at + 48, at + 52, byref(c_int32())]
    return lambda keep=values: entry(*arguments)  # the array outlives the calls


def bare_stiffness():
    """The call the package makes, LAMINATE_STIFFNESS_PACKED, bare."""
    entry = _library.entry_point("LAMINATE_STIFFNESS_PACKED")
    count = c_int32(1)
    values = (c_float * 7)(*(getattr(TAPE, n) for n in ("t", "E1", "E2", "G12", "nu12", "CTE1", "CTE2")))
    results, counts = (c_float * 44)(), (c_int32 * 3)()
    cards = create_string_buffer(_library.CARDS_LENGTH)
    r, c = addressof(results), addressof(counts)
    arguments = [addressof(count), addressof(values), LAYUP.encode().ljust(_library.LAYUP_LENGTH),
                 _library.LAYUP_LENGTH, r, c, cards, _library.CARDS_LENGTH, c + 8]
    keep = (count, values, results, counts)  # the arrays outlive the calls
    return lambda keep=keep: entry(*arguments)


def bare_stiffness_of_corvane_h():
    """LAMINATE_STIFFNESS of corvane.h, bare: its thirty arguments each cost
    ctypes a conversion."""
    entry = _library.entry_point("LAMINATE_STIFFNESS")
    values = (c_float * 7)(*(getattr(TAPE, n) for n in ("t", "E1", "E2", "G12", "nu12", "CTE1", "CTE2")))
    results, counts = (c_float * 44)(), (c_int32 * 3)()
    cards = create_string_buffer(_library.CARDS_LENGTH)
    v, r, c = addressof(values), addressof(results), addressof(counts)
    arguments = [*range(v, v + 28, 4), LAYUP.encode().ljust(_library.LAYUP_LENGTH)]
    arguments += [_library.LAYUP_LENGTH, c, *range(r, r + 144, 36), *range(r + 144, r + 176, 4)]
    arguments += [c + 4, cards, _library.CARDS_LENGTH, c + 8]
    keep = (values, results, counts)  # the arrays outlive the calls
    return lambda keep=keep: entry(*arguments)


def main():
    laminate = corvane.laminate_stiffness(TAPE, LAYUP)
    D = laminate.D
    rows = [
        ("laminate_stiffness, 24 plies", lambda: corvane.laminate_stiffness(TAPE, LAYUP),
         bare_stiffness(), 2000),
        ("plate_buckling_loads", lambda: corvane.plate_buckling_loads(D, 600.0, 200.0),
         bare_plate_loads(D), 20000),
    ]
    for name, package, bare, number in rows:
        p, b = per_call(package, number), per_call(bare, number)
        print(f"{name}: package {p * 1e6:.2f} us, bare ctypes {b * 1e6:.2f} us, "
              f"difference {(p - b) * 1e6:.2f} us")
    thirty = per_call(bare_stiffness_of_corvane_h(), 2000)
    print(f"LAMINATE_STIFFNESS of corvane.h, bare ctypes: {thirty * 1e6:.2f} us")

    rng = np.random.default_rng(1)
    n = 1_000_000
    a = rng.uniform(200.0, 2000.0, n).astype(np.float32)
    b = rng.uniform(100.0, 500.0, n).astype(np.float32)
    start = time.process_time()
    loads = corvane.plate_buckling_loads(D, a, b)
    middle = time.process_time()
    rf = corvane.plate_buckling_rf(-50.0, 0.0, 10.0, *loads)
    end = time.process_time()
    print(f"a million plates: plate_buckling_loads {middle - start:.2f} s "
          f"({(middle - start) / n * 1e6:.2f} us a plate), plate_buckling_rf "
          f"{end - middle:.3f} s; least RF {rf.min():.4g}")


if __name__ == "__main__":
    main()
