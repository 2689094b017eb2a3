"""Calls over arrays: element for element the bits of the one-element calls,
numpy's broadcasting, the shapes of the results, and refusals that keep every
element's result."""

import numpy as np
import pytest

import corvane

RANDOM = np.random.default_rng(22)
N = 300


def _matrices(n, scale):
    """3x3 matrices, some with non-positive terms; not symmetric, so that a
    matrix passed transposed shows."""
    return (RANDOM.uniform(-0.1, 1.0, (n, 3, 3)) * scale).astype(np.float32)


def _positive(n, low, high):
    return RANDOM.uniform(low, high, n).astype(np.float32)


# Each function, its many-element arguments, and how to call it one element at
# a time (the matrices are the leading arguments).
CASES = [
    (corvane.plate_buckling_loads,
     (_matrices(N, 5000.0), _positive(N, -50.0, 900.0), _positive(N, 1.0, 400.0))),
    (corvane.plate_buckling_rf,
     tuple(_positive(N, -200.0, 100.0) for _ in range(3))
     + tuple(_positive(N, 1e-7, 300.0) for _ in range(3))),
    (corvane.shell_buckling_loads,
     (_matrices(N, 60000.0), _matrices(N, 5000.0), _positive(N, 10.0, 900.0),
      _positive(N, -5.0, 400.0), _positive(N, -100.0, 2000.0), _positive(N, 0.5, 4.0))),
    (corvane.strains_in_plane,
     (_positive(N, 0.1, 3.0), _positive(N, -1.0, 6e4), _positive(N, 1e-7, 6e4),
      _positive(N, -1.0, 2e4), _positive(N, 0.0, 0.5))
     + tuple(_positive(N, -500.0, 500.0) for _ in range(3))),
]


# Every seventh case of the reserve factor and the strains refused: a critical
# load, a modulus of 0.
CASES[1][1][3][::7] = 0.0
CASES[3][1][1][::7] = 0.0


def _bits(values):
    return np.asarray(values, dtype=np.float32).view(np.int32)


def _one(function, arguments):
    try:
        return function(*arguments), 0
    except corvane.CorvaneError as error:
        return error.result, error.code


@pytest.mark.parametrize("function, arguments", CASES, ids=lambda c: getattr(c, "__name__", ""))
def test_each_element_is_the_one_element_call_bit_for_bit(function, arguments):
    try:
        many, codes = function(*arguments), np.zeros(N, dtype=np.int32)
    except corvane.CorvaneError as error:
        many, codes = error.result, error.codes
    assert 0 < np.count_nonzero(codes) < N or function is corvane.plate_buckling_loads
    many = np.array(many, dtype=np.float32, ndmin=2)
    for i in range(N):
        one, code = _one(function, [a[i] for a in arguments])
        assert code == codes[i]
        assert (_bits(one) == _bits(many[:, i])).all(), (i, one, many[:, i])


def test_arguments_broadcast_and_shapes_follow():
    D = _matrices(4, 5000.0).reshape(2, 2, 3, 3)
    loads = corvane.plate_buckling_loads(D, [[600.0], [300.0]], 200.0)
    assert all(x.shape == (2, 2) and x.dtype == np.float32 for x in loads)
    assert _bits(loads.Nxcr[1, 0]) == _bits(corvane.plate_buckling_loads(D[1, 0], 300.0, 200.0)[0])
    rf = corvane.plate_buckling_rf(np.linspace(-100, 0, 5), 0.0, 10.0, 5.0, 6.0, 7.0)
    assert rf.shape == (5,) and isinstance(corvane.plate_buckling_rf(-1, 0, 0, 5, 6, 7), float)
    strains = corvane.laminate_stiffness(
        corvane.Ply(0.125, 135000.0, 10000.0, 5000.0, 0.3), "(0/90)S"
    ).strains(Nx=np.arange(6.0).reshape(3, 2))
    assert strains.eps_x.shape == (3, 2) and np.ndim(strains.gamma_xy) == 2
    assert corvane.plate_buckling_loads(np.eye(3)[None], np.array([]), 1.0).Nxcr.shape == (0,)


def test_a_refused_element_keeps_every_result_and_names_the_first():
    Ex = np.array([[5e4, 5e4], [5e4, 0.0]])
    with pytest.raises(corvane.CorvaneError, match=r"1 of 4 elements, the first at index \(1, 1\)") as e:
        corvane.strains_in_plane(1.0, Ex, 4e4, 2e4, 0.3, 100.0, 0.0, 0.0)
    assert e.value.code == 1 and e.value.codes.tolist() == [[0, 0], [0, 1]]
    assert e.value.result.eps_x[0, 0] == np.float32(100.0 / 5e4)
    assert e.value.result.eps_x[1, 1] == np.float32(1e20) and np.isnan(e.value.result.gamma_xy[1, 1])


@pytest.mark.parametrize(
    "call, error",
    [
        (lambda: corvane.plate_buckling_loads(np.zeros((4, 2, 2)), 1.0, [1.0, 2.0]), "3x3"),
        (lambda: corvane.plate_buckling_rf(["1", "2"], 0, 0, 1, 1, 1), "real numbers"),
        (lambda: corvane.strains_in_plane(1, 1, 1, 1, 0.3, [1, 2], [1, 2, 3], 0), "broadcast"),
    ],
)
def test_arrays_the_library_cannot_take_are_refused_before_the_call(call, error):
    with pytest.raises((ValueError, TypeError), match=error):
        call()
