"""Calls over arrays: element for element the bits of the one-element calls,
numpy's broadcasting and the results' shapes, refusals keeping every result."""

import numpy as np
import pytest

import corvane

N = 300
RANDOM = np.random.default_rng(22)


def _u(low, high, shape=(N,)):
    return RANDOM.uniform(low, high, shape).astype(np.float32)


# Matrices not symmetric, so that one passed transposed shows; every seventh
# reserve factor and strain refused (a critical load, a modulus of 0).
PLATES = (_u(-500, 5000, (N, 3, 3)), _u(-50, 900), _u(1, 400))
RFS = (_u(-200, 100), _u(-200, 100), _u(-200, 100), _u(1e-7, 300), _u(1, 300), _u(1, 300))
SHELLS = (_u(-6e3, 6e4, (N, 3, 3)), _u(-500, 5000, (N, 3, 3)), _u(10, 900), _u(-5, 400),
          _u(-100, 2000), _u(0.5, 4))
STRAINS = (_u(0.1, 3), _u(-1, 6e4), _u(1e-7, 6e4), _u(-1, 2e4), _u(0, 0.5),
           _u(-500, 500), _u(-500, 500), _u(-500, 500))
RFS[3][::7] = STRAINS[1][::7] = 0.0


def _call(function, arguments):
    """Results as a float32 array of rows, and the codes."""
    try:
        result, codes = function(*arguments), 0
    except corvane.CorvaneError as error:
        result, codes = error.result, (error.code if error.codes is None else error.codes)
    return np.array(result, dtype=np.float32, ndmin=2), codes


@pytest.mark.parametrize(
    "function, arguments",
    [(corvane.plate_buckling_loads, PLATES), (corvane.plate_buckling_rf, RFS),
     (corvane.shell_buckling_loads, SHELLS), (corvane.strains_in_plane, STRAINS)],
)
def test_each_element_is_the_one_element_call_bit_for_bit(function, arguments):
    many, codes = _call(function, arguments)
    assert np.count_nonzero(codes) > 0 or function is corvane.plate_buckling_loads
    for i in range(N):
        one, code = _call(function, [a[i] for a in arguments])
        assert code == np.ravel(codes)[i] if np.ndim(codes) else code == 0
        assert (one.view(np.int32).ravel() == many[:, i].view(np.int32)).all(), i


def test_arguments_broadcast_and_shapes_follow():
    D = PLATES[0][:4].reshape(2, 2, 3, 3)
    loads = corvane.plate_buckling_loads(D, [[600.0], [300.0]], 200.0)
    assert all(x.shape == (2, 2) and x.dtype == np.float32 for x in loads)
    assert loads.Nxcr[1, 0] == corvane.plate_buckling_loads(D[1, 0], 300.0, 200.0).Nxcr
    assert corvane.plate_buckling_rf(np.zeros(5), 0, 1, 5, 6, 7).shape == (5,)
    assert isinstance(corvane.plate_buckling_rf(-1, 0, 0, 5, 6, 7), float)
    ply = corvane.Ply(0.125, 135000.0, 10000.0, 5000.0, 0.3)
    strains = corvane.laminate_stiffness(ply, "(0/90)S").strains(Nx=np.ones((3, 2)))
    assert strains.eps_x.shape == strains.gamma_xy.shape == (3, 2)
    assert corvane.plate_buckling_loads(np.eye(3)[None], [], 1.0).Nxcr.shape == (0,)


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
