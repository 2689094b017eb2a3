/*
 * corvane_strength.h: the C interface of Corvane's laminate strength analysis
 * and solver deck, the library corvane_strength (libcorvane_strength.so,
 * corvane_strength.dll), which stands beside the library of corvane.h and
 * needs nothing from it.
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
/* Length of the deck written by the solver deck entry points: room for the
 * longest deck, that of 255 plies, line ends and all. */
#define CORVANE_SOLVER_DECK_LENGTH 32768

/*
 * LAMINATE_SOLVER_DECK: the bulk data deck of a laminate of one ply material
 * laid out by the published NASTRAN bulk data card formats (small field, large
 * field where 8 characters cannot hold a value to single precision), for
 * finite-element programs that read those formats strictly: a MAT8 (id 101),
 * a PCOMP of the plies (1001) and a PSHELL (1002) with its MAT2 cards of the
 * unrounded membrane (2001), bending (2002) and coupling (2004) stiffness. No
 * GRID: the deck is meant to be included in a model. It stands beside the deck
 * of LAMINATE_STIFFNESS, which keeps its own layout; docs/cards.md compares
 * them field by field.
 *
 * t, e1, e2, g12, nu12, cte1, cte2
 *                        the ply material, as in LAMINATE_STIFFNESS
 * f1t, f1c, f2t, f2c, f12
 *                        strengths (compression positive) for the MAT8 fields
 *                        Xt, Xc, Yt, Yc and S; 0 for one not known, which
 *                        leaves its field blank. When all five are given (for
 *                        every material) the PCOMP names the maximum strain
 *                        failure theory.
 * layup, layup_length    stacking sequence, e.g. "(0/45/-45/90)2S"
 * crlf                   0: lines end in LF; any other value (-1): CR LF
 * deck, deck_length      out: the deck, blank padded to exactly
 *                        CORVANE_SOLVER_DECK_LENGTH characters
 * length                 out: the number of characters of the deck, line ends
 *                        included; the rest of `deck` is padding
 * message, message_length
 *                        out: the reason of a refusal, one "Error! ..." line,
 *                        blank padded or cut to exactly
 *                        CORVANE_STRENGTH_MESSAGE_LENGTH characters; all
 *                        blanks on success
 * ierr                   out: 0 success;
 *                        1 invalid ply material (a constant below its limit
 *                          or a negative strength);
 *                        2 stacking sequence refused or laminate unusable;
 *                        3 a value of the deck is not finite;
 *                        8 memory exhausted.
 * On error only ierr and message are written: deck and length keep what the
 * caller had in them.
 */
CORVANE_STRENGTH_API void LAMINATE_SOLVER_DECK(
    const float* t, const float* e1, const float* e2, const float* g12, const float* nu12,
    const float* cte1, const float* cte2, const float* f1t, const float* f1c,
    const float* f2t, const float* f2c, const float* f12, const char* layup,
    int64_t layup_length, const int32_t* crlf, char* deck, int64_t deck_length,
    int32_t* length, char* message, int64_t message_length, int32_t* ierr);

/*
 * BI_MATERIAL_LAMINATE_SOLVER_DECK: LAMINATE_SOLVER_DECK for a laminate of two
 * ply materials (MAT8 101 and 102). The twelve values of material 1 (t_1 ...
 * f12_1) come first, then those of material 2; every other argument is that of
 * LAMINATE_SOLVER_DECK. In the layup a ply angle written with a trailing "."
 * (such as "45.") is a ply of material 2.
 */
CORVANE_STRENGTH_API void BI_MATERIAL_LAMINATE_SOLVER_DECK(
    const float* t_1, const float* e1_1, const float* e2_1, const float* g12_1,
    const float* nu12_1, const float* cte1_1, const float* cte2_1, const float* f1t_1,
    const float* f1c_1, const float* f2t_1, const float* f2c_1, const float* f12_1,
    const float* t_2, const float* e1_2, const float* e2_2, const float* g12_2,
    const float* nu12_2, const float* cte1_2, const float* cte2_2, const float* f1t_2,
    const float* f1c_2, const float* f2t_2, const float* f2c_2, const float* f12_2,
    const char* layup, int64_t layup_length, const int32_t* crlf, char* deck,
    int64_t deck_length, int32_t* length, char* message, int64_t message_length,
    int32_t* ierr);
/* Values per material and per segment of SECTION_CRIPPLING. */
#define CORVANE_CRIPPLING_MATERIAL_VALUES 14
#define CORVANE_CRIPPLING_GEOMETRY_VALUES 4

/*
 * SECTION_CRIPPLING: the crippling stress and load of a thin-walled section
 * built of flat laminate segments, its axial stiffness EA, and its allowable as
 * a column of length L and end-fixity coefficient c (Johnson-Euler). Method,
 * range and sources: docs/crippling.md.
 *
 * nmaterials             number of ply materials (1 or more)
 * materials              14 floats per material, as the material arguments of
 *                        LAMINATE_STRENGTH: t, e1, e2, g12, nu12, cte1, cte2,
 *                        f1t, f1c, f2t, f2c, f12, uetall, uecall
 * nsegments              number of segments (1 or more)
 * geometry               4 floats per segment: width b (> 0, centre-line: from
 *                        a free edge, or between supports), the centre y, z of
 *                        the segment in the section plane and the direction of
 *                        its width from the y axis in degrees (for the column's
 *                        bending stiffness)
 * edge                   per segment: 1 one edge free (OEF), 2 no edge free (NEF)
 * material               per segment: its ply material, 1 to nmaterials
 * fcu                    per segment: the laminate's compression strength, or 0
 *                        to take the first-ply failure stress under uniaxial
 *                        compression by the criterion
 * layups, layups_length  nsegments stacking sequences of 1000 characters each,
 *                        one after another (each blank padded; a zero byte ends
 *                        one early)
 * criterion, criterion_length
 *                        the criterion keyword for the compression strengths
 *                        not given (as LAMINATE_STRENGTH's; PUCK is the usual
 *                        choice); always read, so it must be a keyword
 * options                3 floats: F12*, p+, p-, as LAMINATE_STRENGTH's
 * length                 the column length L (0 or more; 0: the crippling
 *                        stress itself)
 * fixity                 the end-fixity coefficient c (> 0; 1 pinned, 4 fixed):
 *                        L' = L / sqrt(c)
 * thickness, ex          out, per segment: laminate thickness t and apparent
 *                        membrane modulus Ex
 * fcu_used               out, per segment: the compression strength used
 * fcc                    out, per segment: the crippling stress,
 *                        Fcu 1.63 (b/t)^-0.717 (OEF) or Fcu 11.0 (b/t)^-1.124
 *                        (NEF), at most Fcu
 * warning                out, per segment: 0 b/t within the range the relation
 *                        is used on (OEF 4 to 30, NEF 10 to 50), 1 below, 2
 *                        above: the value is given all the same
 * area                   out: A = sum(b t)
 * ea                     out: EA = sum(Ex t b)
 * fcc_section            out: the section's crippling stress sum(Fcc b t)/A
 * pcc                    out: the crippling load fcc_section A
 * rho                    out: the radius of gyration sqrt(EI_min/EA) about the
 *                        weakest principal axis through the modulus-weighted
 *                        centroid
 * column_stress          out: the column allowable stress at L'/rho, by
 *                        Johnson's parabola below sqrt(2 pi^2 E/Fcc), E = EA/A,
 *                        and by Euler's stress beyond
 * column_load            out: column_stress A
 * column_mode            out: 1 Johnson, 2 Euler
 * message, message_length
 *                        out: 200 characters: a refusal's "Error! ..." line; on
 *                        success a "Warning! ..." line naming the first segment
 *                        outside its range, or all blanks
 * ierr                   out: 0 success (warnings included);
 *                        1 invalid ply material; 2 layup refused or laminate
 *                        unusable; 3 unknown criterion keyword; 4 criterion not
 *                        available; 5 a strength the criterion needs missing;
 *                        6 a segment's value refused (width not positive,
 *                        centre or angle not finite, edge not 1 or 2, material
 *                        not 1 to nmaterials, fcu negative or not finite);
 *                        7 nmaterials or nsegments below 1; 8 memory
 *                        exhausted; 9 an option of the criterion out of range;
 *                        10 length negative or fixity not positive (or either
 *                        not finite); 11 the criterion finds no compression
 *                        failure (give fcu); 12 a result beyond single
 *                        precision.
 * On error only ierr and message are written.
 */
CORVANE_STRENGTH_API void SECTION_CRIPPLING(
    const int32_t* nmaterials, const float* materials, const int32_t* nsegments,
    const float* geometry, const int32_t* edge, const int32_t* material, const float* fcu,
    const char* layups, int64_t layups_length, const char* criterion,
    int64_t criterion_length, const float* options, const float* length,
    const float* fixity, float* thickness, float* ex, float* fcu_used, float* fcc,
    int32_t* warning, float* area, float* ea, float* fcc_section, float* pcc, float* rho,
    float* column_stress, float* column_load, int32_t* column_mode, char* message,
    int64_t message_length, int32_t* ierr);
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

/*
 * LAMINATE_STIFFNESS_PACKED: LAMINATE_STIFFNESS (one ply material) or
 * BI_MATERIAL_LAMINATE_STIFFNESS (two) of corvane.h, its arguments packed in
 * a few arrays, for hosts that pay for every argument they pass. The results
 * are bit for bit those of the entry point of corvane.h, and a refusal leaves
 * the outputs as that entry point leaves them.
 *
 * materials              1 or 2
 * constants              7 floats per material: t, E1, E2, G12, nu12, CTE1,
 *                        CTE2 (a ply written "45." is of the second)
 * layup, layup_length    stacking sequence, 1000 characters
 * results                out, 44 floats: [A], [B], [D], [D*] (9 each, in
 *                        the order of corvane.h), h, Ex, Ey, Gxy, nuxy,
 *                        alphax, alphay, alphaxy
 * counts                 out, 2 integers: the symmetric flag (-1 or 0) and
 *                        the number of plies
 * cards, cards_length    out: the bulk data cards, 10000 characters
 * ierr                   out: the codes of the entry point of corvane.h;
 *                        3 materials neither 1 nor 2 (nothing else written)
 */
CORVANE_STRENGTH_API void LAMINATE_STIFFNESS_PACKED(const int32_t* materials,
                                                    const float* constants,
                                                    const char* layup,
                                                    int64_t layup_length, float* results,
                                                    int32_t* counts, char* cards,
                                                    int64_t cards_length, int32_t* ierr);

#ifdef __cplusplus
}
#endif

#endif /* CORVANE_CORVANE_STRENGTH_H_ */
