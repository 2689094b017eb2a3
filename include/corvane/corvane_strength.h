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
/* Lengths of the material property text and of the damage model text read by
 * NOTCHED_LAMINATE_STRENGTH and IMPACT_LAMINATE_STRENGTH; the notch check
 * keyword has the criterion's length. */
#define CORVANE_STRENGTH_PROPERTIES_LENGTH 1000
#define CORVANE_STRENGTH_MODEL_LENGTH 200
/* Results per load case of NOTCHED_LAMINATE_STRENGTH with the check ALL:
 * OHT, OHC, FHT, FHC, BEARING; and of IMPACT_LAMINATE_STRENGTH: CAIH, CAIE,
 * the damage model. */
#define CORVANE_STRENGTH_NOTCH_CHECKS 5
#define CORVANE_STRENGTH_IMPACT_CHECKS 3

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

/*
 * NOTCHED_LAMINATE_STRENGTH: reserve factors of a laminate of one ply material
 * with a circular hole under many load cases: open-hole tension and
 * compression (OHT, OHC) and filled-hole tension (FHT, with a0fht) by the
 * point-stress criterion of Whitney and Nuismer with the laminate's
 * orthotropic stress concentration factor; filled-hole compression (FHC, and
 * FHT without a0fht) by the filled-hole factors Kfhc, Kfht; the bearing of a
 * fastener load (BEARING). See docs/strength.md. Each is checked along x and
 * y against the membrane strains of the mechanical loads.
 *
 * t, e1, e2, g12, nu12   ply thickness and elastic constants, as in
 *                        LAMINATE_STRENGTH
 * tension_allowable, compression_allowable
 *                        along the fibres: below 1 an ultimate strain, 1 or
 *                        more a strength (the strain is then value/E1); the
 *                        unnotched strains of the checks
 * properties, properties_length
 *                        material properties by key, "KEY=value" separated by
 *                        blanks, commas or semicolons, letter case ignored,
 *                        applied in order: OHT, OHC, FHT (measured notched
 *                        strengths of the quasi-isotropic laminate with a 6.35
 *                        hole, from which the characteristic distances are
 *                        derived), FHC, A0OHT, A0OHC, A0FHT, KFHT, KFHC, FBR,
 *                        F1T, F1C, CAIH, CAIE and the other keys of the ply
 *                        material; 1000 characters, blank for none
 * layup, layup_length    stacking sequence
 * check, check_length    OHT, OHC, FHT, FHC, BEARING or ALL (the five in that
 *                        order), letter case and blanks ignored
 * hole_diameter          the hole's diameter, positive (6.35 is the usual
 *                        quarter inch in mm)
 * ncases, loads          load cases as in LAMINATE_STRENGTH (dT is not counted)
 * fastener_loads         ncases floats: the fastener load in the hole (force),
 *                        read for BEARING and ALL only
 * rf                     out, ncases floats (ncases x 5 for ALL, case after
 *                        case); 1.0e10 when the case does not load the check
 * message, message_length
 *                        out, as in LAMINATE_STRENGTH
 * ierr                   out: 0 success; 1 invalid ply material; 2 stacking
 *                        sequence refused or laminate unusable; 3 unknown
 *                        check keyword; 5 notch data missing (e.g. "Error!
 *                        a0oht missing (material 1, criterion OHT)."); 6 a
 *                        load or fastener load is NaN or infinite; 7 ncases
 *                        negative; 8 memory exhausted; 9 hole diameter not
 *                        positive; 10 a property refused (unknown key,
 *                        unreadable value, or a notched strength from which
 *                        no characteristic distance follows).
 * On error only ierr and message are written.
 */
CORVANE_STRENGTH_API void NOTCHED_LAMINATE_STRENGTH(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* tension_allowable, const float* compression_allowable,
    const char* properties, int64_t properties_length, const char* layup,
    int64_t layup_length, const char* check, int64_t check_length,
    const float* hole_diameter, const int32_t* ncases, const float* loads,
    const float* fastener_loads, float* rf, char* message, int64_t message_length,
    int32_t* ierr);

/*
 * IMPACT_LAMINATE_STRENGTH: residual strength after impact of a laminate of one
 * ply material under many load cases: the largest principal membrane strain
 * (of the mechanical loads) against the after-impact strain limits CAIH and
 * CAIE and, when a damage model is given, its allowable for the impact energy
 * and the laminate's thickness. See docs/strength.md for the model's p1 ... p4.
 *
 * t ... layup_length     as in NOTCHED_LAMINATE_STRENGTH (CAIH and CAIE by
 *                        key; by default 2/3 and 1/3 of the compressive
 *                        strain)
 * damage_model, damage_model_length
 *                        the model: its name, CDTM-T03 to CDTM-T06, then its
 *                        coefficients separated by blanks: for CDTM-T03 a0 a1
 *                        b0 b1 c0 c1 scale [factor], for the others k2 k3 k0
 *                        k1 scale [factor] (factor 0.83 when not given); 200
 *                        characters, blank for none
 * unit_factor            u, positive: multiplies the coefficients carrying the
 *                        allowable's unit (a0 a1 b0 b1, k2 k0)
 * energy                 impact energy, 0 or more, in the units of the model
 * ncases, loads          load cases as in LAMINATE_STRENGTH (dT not counted)
 * rf                     out, ncases x 3: per case the RF against CAIH, CAIE
 *                        and the model; with no model the third value of each
 *                        case keeps what the caller put there; 1.0e10 at zero
 *                        strain
 * message, message_length, ierr
 *                        as in NOTCHED_LAMINATE_STRENGTH, and 5 CAIH or CAIE
 *                        missing, 9 energy or unit_factor out of range, 11
 *                        damage model not usable (unknown name, a coefficient
 *                        missing or unreadable, a result not finite).
 */
CORVANE_STRENGTH_API void IMPACT_LAMINATE_STRENGTH(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* tension_allowable, const float* compression_allowable,
    const char* properties, int64_t properties_length, const char* layup,
    int64_t layup_length, const char* damage_model, int64_t damage_model_length,
    const float* unit_factor, const float* energy, const int32_t* ncases,
    const float* loads, float* rf, char* message, int64_t message_length, int32_t* ierr);

#ifdef __cplusplus
}
#endif

#endif /* CORVANE_CORVANE_STRENGTH_H_ */
