/*
 * corvane.h: the C interface of Corvane, structural analysis of laminates of
 * fibre-reinforced plies.
 *
 * Six entry points, each returning nothing and reporting through its last
 * argument, an error code set to 0 on entry. Every argument is passed by
 * pointer: reals are 32-bit floats, integers and logicals 32-bit (a logical is
 * -1 for true, 0 for false). A 3x3 matrix is nine floats, element (i,j) at
 * index (i-1) + 3(j-1); the matrices are symmetric, so row and column order
 * coincide. Indices 1, 2, 3 stand for x, y and xy.
 *
 * A text is a blank-padded buffer without a terminating zero, followed at once
 * by a hidden length passed by value. The length is accepted and ignored: the
 * stacking sequence is always read as exactly 1000 characters (a zero byte
 * ends it early) and the card text always written as exactly 10000, so the
 * buffers must hold at least that many.
 *
 * A null pointer among the arguments makes a call return at once, writing
 * nothing but the error code, which is then -1 (when it is not itself null).
 * No call prints, stops the process, or keeps anything between calls.
 * Units are any consistent set (for instance mm, N, MPa).
 */
#ifndef CORVANE_CORVANE_H_
#define CORVANE_CORVANE_H_

#include <stdint.h>

/* CORVANE_VERSION_MAJOR, _MINOR, _PATCH and CORVANE_VERSION_STRING. */
#include "corvane/version.h"

#if defined(_WIN32)
#define CORVANE_API
#elif defined(__GNUC__)
#define CORVANE_API __attribute__((visibility("default")))
#else
#define CORVANE_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Length of the stacking-sequence text read, and of the card text written. */
#define CORVANE_LAYUP_LENGTH 1000
#define CORVANE_CARDS_LENGTH 10000

/*
 * LAMINATE_STIFFNESS: stiffness of a laminate of one ply material.
 *
 * t, e1, e2, g12, nu12   ply thickness (at least 1e-5) and ply elastic
 *                        constants (none negative)
 * cte1, cte2             ply thermal expansion along and across the fibres
 * layup, layup_length    stacking sequence, e.g. "(0/45/-45/90)S"
 * symmetric              out: -1 when the stack is symmetric, else 0
 * a, b, d, dstar         out: [A], [B], [D] and [D*] = [D] - [B][A]^-1[B]
 * h                      out: laminate thickness
 * ex, ey, gxy, nuxy      out: apparent membrane constants
 * alphax, alphay, alphaxy  out: apparent thermal expansion coefficients
 * plies                  out: number of plies
 * cards, cards_length    out: bulk data cards (MAT8, PCOMP, MAT2), lines
 *                        ending in CR LF, blank-padded or cut to exactly
 *                        10000 characters
 * ierr                   out: 0 success; 1 invalid ply material; 2 stacking
 *                        sequence refused (syntax, unreadable angle, 256
 *                        plies or more), laminate unusable (singular [A], or
 *                        Ex, Ey, Gxy or nuxy below 1e-10, nuxy = 0 included)
 *                        or memory exhausted
 * On error, symmetric, dstar, plies and cards keep what the caller had in
 * them; the other outputs are zero.
 */
CORVANE_API void LAMINATE_STIFFNESS(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* cte1, const float* cte2, const char* layup, int64_t layup_length,
    int32_t* symmetric, float* a, float* b, float* d, float* dstar, float* h, float* ex,
    float* ey, float* gxy, float* nuxy, float* alphax, float* alphay, float* alphaxy,
    int32_t* plies, char* cards, int64_t cards_length, int32_t* ierr);

/*
 * BI_MATERIAL_LAMINATE_STIFFNESS: the same for plies of two materials. A ply
 * written with a trailing point, e.g. "45.", is of material 2.
 *
 * t1 .. cte2_1           material 1: thickness, E1, E2, G12, nu12, CTE1, CTE2
 * t2 .. cte2_2           material 2, in the same order; it must be valid
 *                        even when no ply uses it
 * layup .. ierr          as for LAMINATE_STIFFNESS; ierr 1 when either
 *                        material is invalid.
 * Unlike LAMINATE_STIFFNESS, every result is zeroed on entry: on error the
 * symmetric flag is 0, all four matrices ([D*] included) and the ply count
 * are zero, and only the card text keeps what the caller had in it.
 */
CORVANE_API void BI_MATERIAL_LAMINATE_STIFFNESS(
    const float* t1, const float* e1_1, const float* e2_1, const float* g12_1,
    const float* nu12_1, const float* cte1_1, const float* cte2_1, const float* t2,
    const float* e1_2, const float* e2_2, const float* g12_2, const float* nu12_2,
    const float* cte1_2, const float* cte2_2, const char* layup, int64_t layup_length,
    int32_t* symmetric, float* a, float* b, float* d, float* dstar, float* h, float* ex,
    float* ey, float* gxy, float* nuxy, float* alphax, float* alphay, float* alphaxy,
    int32_t* plies, char* cards, int64_t cards_length, int32_t* ierr);

/*
 * LAMINATE_STRAINS_IN_PLANE: membrane strains under running loads.
 *
 * t, ex, ey, gxy, nuxy   laminate thickness (not checked: 0 gives infinite
 *                        strains) and apparent membrane constants
 * nx, ny, nxy            running loads (force per width)
 * eps_x, eps_y, gamma_xy out: strains; gamma_xy is the engineering shear strain
 * eps_p45, eps_m45       out: direct strains along +45 and -45 degrees
 * ierr                   out: 0 success; 1 when ex, ey or gxy is below 1e-6,
 *                        and then every strain but gamma_xy is 1.0e20 and
 *                        gamma_xy keeps what the caller had in it
 */
CORVANE_API void LAMINATE_STRAINS_IN_PLANE(const float* t, const float* ex,
                                           const float* ey, const float* gxy,
                                           const float* nuxy, const float* nx,
                                           const float* ny, const float* nxy,
                                           float* eps_x, float* eps_y, float* gamma_xy,
                                           float* eps_p45, float* eps_m45, int32_t* ierr);

/*
 * LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS: critical running loads of a flat
 * rectangular plate simply supported on all edges (specially orthotropic:
 * only D11, D12, D22 and D66 are used).
 *
 * d                      bending stiffness [D]
 * a, b                   plate length along x and width along y
 * nxcr, nycr, nxycr      out: critical compression in x and y and critical
 *                        shear, as positive magnitudes; 0 where no load could
 *                        be found (a non-positive dimension or D term, D12
 *                        included, or a search that did not converge)
 * ierr                   out: always 0
 */
CORVANE_API void LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS(const float* d, const float* a,
                                                        const float* b, float* nxcr,
                                                        float* nycr, float* nxycr,
                                                        int32_t* ierr);

/*
 * LAMINATE_RECTANGULAR_SS_BUCKLING_RF: buckling reserve factor of applied
 * running loads on a plate with known critical loads.
 *
 * nx, ny, nxy            applied loads, compression negative
 * nxcr, nycr, nxycr      critical loads, positive magnitudes
 * rf                     out: reserve factor (100000.0 when nothing compresses
 *                        or shears the plate)
 * ierr                   out: 0 success; 1 when a critical load is below 1e-6,
 *                        and then rf is 0
 */
CORVANE_API void LAMINATE_RECTANGULAR_SS_BUCKLING_RF(const float* nx, const float* ny,
                                                     const float* nxy, const float* nxcr,
                                                     const float* nycr,
                                                     const float* nxycr, float* rf,
                                                     int32_t* ierr);

/*
 * LAMINATE_SHELL_BUCKLING_LOADS: critical running loads of a curved panel or
 * cylinder, each the larger of a whole-cylinder and a curved-panel estimate.
 *
 * a, d                   membrane stiffness [A] and bending stiffness [D]
 * l, b                   axial length and circumferential panel width (arc)
 * r, t                   radius (0 or less: flat panel) and wall thickness
 * nxcr, nycr, nxycr      out: critical axial and circumferential compression
 *                        and critical shear, as positive magnitudes
 * ierr                   out: 0 success; 1 when the flat-panel shear estimate
 *                        had non-positive input (its value is then 0)
 */
CORVANE_API void LAMINATE_SHELL_BUCKLING_LOADS(const float* a, const float* d,
                                               const float* l, const float* b,
                                               const float* r, const float* t,
                                               float* nxcr, float* nycr, float* nxycr,
                                               int32_t* ierr);

#ifdef __cplusplus
}
#endif

#endif /* CORVANE_CORVANE_H_ */
