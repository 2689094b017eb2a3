/*
 * corvane_strength.h: the C interface of Corvane's laminate strength analysis,
 * the library corvane_strength (libcorvane_strength.so, corvane_strength.dll),
 * which stands beside the library of corvane.h and needs nothing from it.
 *
 * The calling style is that of corvane.h. The entry point returns nothing and
 * reports through its last argument, an error code. Every argument is passed
 * by pointer: reals are 32-bit floats, integers 32-bit. A text is a
 * blank-padded buffer without a terminating zero, followed at once by a hidden
 * length passed by value, which is accepted and ignored: texts are always read
 * and written at the lengths defined below (a zero byte ends a text read
 * early), so the buffers must hold at least that many characters.
 *
 * A null pointer among the arguments makes a call return at once, writing
 * nothing but the error code, which is then -1 (when it is not itself null).
 * No call prints, stops the process, or keeps anything between calls; calls
 * may run in many threads at once. Units are any consistent set (for instance
 * mm, N, MPa, K).
 */
#ifndef CORVANE_CORVANE_STRENGTH_H_
#define CORVANE_CORVANE_STRENGTH_H_

#include <stdint.h>

/* CORVANE_VERSION_MAJOR, _MINOR, _PATCH and CORVANE_VERSION_STRING. */
#include "corvane/version.h"

#if defined(_WIN32)
#define CORVANE_STRENGTH_API
#elif defined(__GNUC__)
#define CORVANE_STRENGTH_API __attribute__((visibility("default")))
#else
#define CORVANE_STRENGTH_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Lengths of the texts: the stacking sequence and the criterion keyword read,
 * the message written. */
#define CORVANE_STRENGTH_LAYUP_LENGTH 1000
#define CORVANE_STRENGTH_CRITERION_LENGTH 32
#define CORVANE_STRENGTH_MESSAGE_LENGTH 200
/* Values of one load case: Nx, Ny, Nxy, Mx, My, Mxy, dT. */
#define CORVANE_STRENGTH_LOAD_VALUES 7

/*
 * LAMINATE_STRENGTH: first-ply failure of a laminate of one ply material under
 * many load cases, by one failure criterion, by classical lamination theory.
 * The laminate is built once and every load case evaluated against it.
 *
 * t, e1, e2, g12, nu12   ply thickness (at least 1e-5) and elastic constants
 *                        (none negative)
 * cte1, cte2             ply thermal expansion along and across the fibres
 * f1t, f1c               strengths along the fibres, tension and compression
 * f2t, f2c               strengths across the fibres, tension and compression
 * f12                    in-plane shear strength; all strengths positive, 0
 *                        for one not known (a criterion that needs it is then
 *                        refused, code 5)
 * uetall, uecall         allowable tensile and compressive strains (positive);
 *                        as for the ply material everywhere in Corvane, a value
 *                        of 1 or more is taken as a stress: uetall = 0.8 value/E1,
 *                        uecall = value/E1. Only MAX_TRUNCATED_STRAIN uses them.
 * layup, layup_length    stacking sequence, e.g. "(0/45/-45/90)2S"
 * criterion, criterion_length
 *                        the criterion keyword, letter case and surrounding
 *                        blanks ignored: TSAI_HILL, TSAI_WU, HOFFMAN,
 *                        YAMADA_SUN, PUCK, MAX_STRAIN_I, MAX_TRUNCATED_STRAIN
 *                        or MTS
 * options                3 floats: Tsai-Wu's normalised interaction term F12*
 *                        (in (-1, 1); -0.5 is the usual value), Puck's
 *                        inclination parameters p+ and p- (each in [0, 1);
 *                        0.35 and 0.30 for carbon, 0.30 and 0.25 for glass).
 *                        Only the criterion that uses an option reads it.
 * ncases                 number of load cases (0 or more)
 * loads                  7 floats per case, case after case: running loads Nx,
 *                        Ny, Nxy (force per width), running moments Mx, My,
 *                        Mxy (moment per width), temperature change dT
 * rf                     out, ncases floats: the first-ply failure reserve
 *                        factor, the least over plies and surfaces of the
 *                        factor on the mechanical loads (thermal stresses held)
 *                        at which the criterion reaches 1; 1.0e10 when nothing
 *                        loads the plies or the criterion is never reached, 0
 *                        when the thermal stresses alone reach it
 * ply                    out, ncases integers: the ply where it occurs,
 *                        1-based from the bottom (z = -h/2); on a tie the
 *                        first met, bottom ply and surface first
 * surface                out, ncases integers: 1 bottom, 2 middle, 3 top of
 *                        that ply
 * mode                   out, ncases integers: the failure mode, where the
 *                        criterion tells it: 0 not told, 1 fibre tension,
 *                        2 fibre compression, 3 matrix tension, 4 matrix
 *                        compression, 5 shear, 6, 7, 8 Puck's inter-fibre
 *                        modes A, B, C
 * message, message_length
 *                        out: the reason of a refusal, one "Error! ..." line
 *                        (e.g. "Error! F2c missing (material 1, criterion
 *                        PUCK)."), blank-padded or cut to exactly 200
 *                        characters; all blanks on success
 * ierr                   out: 0 success;
 *                        1 invalid ply material (a constant below its limit
 *                          or a negative strength);
 *                        2 stacking sequence refused (syntax, unreadable
 *                          angle, 256 plies or more) or laminate unusable;
 *                        3 unknown criterion keyword;
 *                        4 criterion not available (AOSL, MAX_STRAIN_II,
 *                          MTS2: no published definition);
 *                        5 a strength or allowable the criterion needs is
 *                          missing (zero or not finite);
 *                        6 a load is NaN or infinite (the message names the
 *                          first such case);
 *                        7 ncases negative;
 *                        8 memory exhausted;
 *                        9 an option of the criterion out of its range.
 * On error only ierr and message are written: rf, ply, surface and mode keep
 * what the caller had in them.
 */
CORVANE_STRENGTH_API void LAMINATE_STRENGTH(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* cte1, const float* cte2, const float* f1t, const float* f1c,
    const float* f2t, const float* f2c, const float* f12, const float* uetall,
    const float* uecall, const char* layup, int64_t layup_length, const char* criterion,
    int64_t criterion_length, const float* options, const int32_t* ncases,
    const float* loads, float* rf, int32_t* ply, int32_t* surface, int32_t* mode,
    char* message, int64_t message_length, int32_t* ierr);

/*
 * BI_MATERIAL_LAMINATE_STRENGTH: LAMINATE_STRENGTH for a laminate of two ply
 * materials. The fourteen values of material 1 (t_1 ... uecall_1) come first,
 * then those of material 2, each as in LAMINATE_STRENGTH; every other argument
 * is that of LAMINATE_STRENGTH. In the layup a ply angle written with a
 * trailing "." (such as "45.") is a ply of material 2. A refused material is
 * named in the message ("Error! Invalid ply material 2: ..."), a missing
 * strength with its material ("(material 2, criterion PUCK)").
 */
CORVANE_STRENGTH_API void BI_MATERIAL_LAMINATE_STRENGTH(
    const float* t_1, const float* e1_1, const float* e2_1, const float* g12_1,
    const float* nu12_1, const float* cte1_1, const float* cte2_1, const float* f1t_1,
    const float* f1c_1, const float* f2t_1, const float* f2c_1, const float* f12_1,
    const float* uetall_1, const float* uecall_1, const float* t_2, const float* e1_2,
    const float* e2_2, const float* g12_2, const float* nu12_2, const float* cte1_2,
    const float* cte2_2, const float* f1t_2, const float* f1c_2, const float* f2t_2,
    const float* f2c_2, const float* f12_2, const float* uetall_2, const float* uecall_2,
    const char* layup, int64_t layup_length, const char* criterion,
    int64_t criterion_length, const float* options, const int32_t* ncases,
    const float* loads, float* rf, int32_t* ply, int32_t* surface, int32_t* mode,
    char* message, int64_t message_length, int32_t* ierr);

/* Lengths of the texts of the material data entry points. */
#define CORVANE_MATERIAL_NAME_LENGTH 80
#define CORVANE_MATERIAL_PLACES_LENGTH 4000
#define CORVANE_MATERIAL_PATH_LENGTH 1000
#define CORVANE_MATERIAL_NAMES_LENGTH 10000
/* Values of a ply material, in the order of LAMINATE_STRENGTH's arguments. */
#define CORVANE_MATERIAL_VALUES 14

/*
 * MATERIAL_DATA: a ply material by name from the material data files (the
 * format is in docs/materials.md). The places are searched in this order: the
 * caller's `places`, the directory named by the environment variable
 * BASES_DATOS, each directory on PATH, then `installed`; every "*.mat" file of
 * a directory is read, and a name found in two places is taken from the first.
 * Any fault in any file read refuses the call, so that a broken file is fixed
 * rather than passed over.
 *
 * name, name_length      the material's name (80 characters); letter case and
 *                        surrounding blanks ignored
 * places, places_length  files or directories searched first, separated by
 *                        line feeds (4000 characters); blank for none. Each
 *                        must exist.
 * installed, installed_length
 *                        the directory of the materials installed with
 *                        Corvane, searched last (1000 characters); blank for
 *                        none
 * values                 out, 14 floats: t, E1, E2, G12, nu12, CTE1, CTE2,
 *                        F1t, F1c, F2t, F2c, F12, uetall, uecall, ready to pass
 *                        to LAMINATE_STRENGTH (the first seven to the
 *                        stiffness entry points of corvane.h)
 * fabric                 out: -1 a woven fabric, 0 a tape
 * found_name, found_name_length
 *                        out: the name as the file writes it, 80 characters
 * file, file_length      out: the file it was read from, 1000 characters
 * line                   out: the line of its MATERIAL line in that file
 * message, message_length
 *                        out: the reason of a refusal, one "Error! ..." line,
 *                        200 characters; all blanks on success
 * ierr                   out: 0 found; 1 faulty material data (the first
 *                        fault, as "file:line: what"); 2 no material of that
 *                        name (the message names up to three nearest names);
 *                        3 memory exhausted.
 * On error only ierr and message are written.
 */
CORVANE_STRENGTH_API void MATERIAL_DATA(const char* name, int64_t name_length,
                                        const char* places, int64_t places_length,
                                        const char* installed, int64_t installed_length,
                                        float* values, int32_t* fabric, char* found_name,
                                        int64_t found_name_length, char* file,
                                        int64_t file_length, int32_t* line, char* message,
                                        int64_t message_length, int32_t* ierr);

/*
 * MATERIAL_NAMES: the names of every material of the material data files,
 * each once, searched as MATERIAL_DATA searches them, sorted with letter case
 * ignored.
 *
 * places, installed      as for MATERIAL_DATA
 * count                  out: the number of names
 * names, names_length    out: the names, each followed by a line feed, blank
 *                        padded to 10000 characters; the names that do not fit
 *                        whole are left out (count still counts them)
 * message, ierr          as for MATERIAL_DATA (codes 0, 1 and 3).
 */
CORVANE_STRENGTH_API void MATERIAL_NAMES(const char* places, int64_t places_length,
                                         const char* installed, int64_t installed_length,
                                         int32_t* count, char* names,
                                         int64_t names_length, char* message,
                                         int64_t message_length, int32_t* ierr);

/*
 * The plate, shell and strain entry points of corvane.h over arrays: element i
 * of every array argument is one call of the one-element entry point, and its
 * results are bit for bit what that call gives, in the same order of
 * arguments. Each element's inputs are read before its results are written.
 *
 * n                      number of elements (0 or more)
 * d, a (the matrices)    9 floats per element, element after element, each
 *                        matrix in column order as corvane.h takes it
 * other inputs, results  1 float per element
 * codes                  out, n integers: each element's error code, as the
 *                        one-element entry point gives it
 * ierr                   out: 0 every element's code is 0; 1 at least one is
 *                        not (codes tells which; every element is computed
 *                        and written all the same); 2 n negative (nothing
 *                        else written); -1 a null pointer.
 *
 * PLATE_BUCKLING_LOADS_MANY   LAMINATE_RECTANGULAR_SS_BUCKLING_LOADS (no codes:
 *                             a load not found is 0)
 * PLATE_BUCKLING_RF_MANY      LAMINATE_RECTANGULAR_SS_BUCKLING_RF
 * SHELL_BUCKLING_LOADS_MANY   LAMINATE_SHELL_BUCKLING_LOADS
 * STRAINS_IN_PLANE_MANY       LAMINATE_STRAINS_IN_PLANE (an element refused
 *                             keeps the caller's gamma_xy, as there)
 */
CORVANE_STRENGTH_API void PLATE_BUCKLING_LOADS_MANY(const int32_t* n, const float* d,
                                                    const float* a, const float* b,
                                                    float* nxcr, float* nycr,
                                                    float* nxycr, int32_t* ierr);
CORVANE_STRENGTH_API void PLATE_BUCKLING_RF_MANY(const int32_t* n, const float* nx,
                                                 const float* ny, const float* nxy,
                                                 const float* nxcr, const float* nycr,
                                                 const float* nxycr, float* rf,
                                                 int32_t* codes, int32_t* ierr);
CORVANE_STRENGTH_API void SHELL_BUCKLING_LOADS_MANY(const int32_t* n, const float* a,
                                                    const float* d, const float* l,
                                                    const float* b, const float* r,
                                                    const float* t, float* nxcr,
                                                    float* nycr, float* nxycr,
                                                    int32_t* codes, int32_t* ierr);
CORVANE_STRENGTH_API void STRAINS_IN_PLANE_MANY(
    const int32_t* n, const float* t, const float* ex, const float* ey, const float* gxy,
    const float* nuxy, const float* nx, const float* ny, const float* nxy, float* eps_x,
    float* eps_y, float* gamma_xy, float* eps_p45, float* eps_m45, int32_t* codes,
    int32_t* ierr);

#ifdef __cplusplus
}
#endif

#endif /* CORVANE_CORVANE_STRENGTH_H_ */
