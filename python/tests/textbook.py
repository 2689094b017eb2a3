"""Expected values from textbook formulas, in double precision, written
independently of the library."""

import math

import numpy as np


def reduced_stiffness(E1, E2, G12, nu12):
    """Plane-stress stiffness Q of an orthotropic ply in its own axes."""
    nu21 = nu12 * E2 / E1
    d = 1.0 - nu12 * nu21
    return np.array(
        [[E1 / d, nu12 * E2 / d, 0.0], [nu12 * E2 / d, E2 / d, 0.0], [0.0, 0.0, G12]]
    )


def rotated_stiffness(Q, angle_deg):
    """Q-bar = T^-1 Q R T R^-1 for a ply at angle_deg, with the Reuter
    matrix R relating tensor and engineering shear strain."""
    c = math.cos(math.radians(angle_deg))
    s = math.sin(math.radians(angle_deg))
    T = np.array(
        [
            [c * c, s * s, 2 * s * c],
            [s * s, c * c, -2 * s * c],
            [-s * c, s * c, c * c - s * s],
        ]
    )
    R = np.diag([1.0, 1.0, 2.0])
    return np.linalg.inv(T) @ Q @ R @ T @ np.linalg.inv(R)


def quasi_isotropic(Q):
    """Invariants U1, U4, U5: the in-plane stiffness per unit thickness of a
    quasi-isotropic laminate is [[U1, U4, 0], [U4, U1, 0], [0, 0, U5]]."""
    Q11, Q12, Q22, Q66 = Q[0, 0], Q[0, 1], Q[1, 1], Q[2, 2]
    U1 = (3 * Q11 + 3 * Q22 + 2 * Q12 + 4 * Q66) / 8
    U4 = (Q11 + Q22 + 6 * Q12 - 4 * Q66) / 8
    U5 = (Q11 + Q22 - 2 * Q12 + 4 * Q66) / 8
    return U1, U4, U5


def isotropic_plate_D(E, t, nu):
    """Bending stiffness matrix of an isotropic plate."""
    D = E * t**3 / (12 * (1 - nu * nu))
    return np.array([[D, nu * D, 0.0], [nu * D, D, 0.0], [0.0, 0.0, (1 - nu) / 2 * D]])


def isotropic_plate_A(E, t, nu):
    """Membrane stiffness matrix of an isotropic plate."""
    A = E * t / (1 - nu * nu)
    return np.array([[A, nu * A, 0.0], [nu * A, A, 0.0], [0.0, 0.0, (1 - nu) / 2 * A]])
