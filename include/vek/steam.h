#ifndef VEK_STEAM_INTERFACE_H
#define VEK_STEAM_INTERFACE_H

/* The engine: properties of water and steam on the 1967 industrial formulation (IFC-67), from any
 * two known properties. C99; the one binary interface of the library libvek-steam.
 *
 * Units: bar, °C, m³/kg, kJ/kg, kJ/(kg K), m/s, Pa·s, W/(m K), N/m; quality is the mass fraction of
 * vapour. Range: 0.006112444 to 1000 bar, 0.01 to 800 °C. A property that a state does not have is
 * missing: not a number.
 *
 * The library has no state: every function may be called from any number of threads, and none
 * touches the floating-point environment of the host, whatever it is. A pair has one answer, with
 * the same bits by every function.
 *
 * Every function that can fail returns a code: VEK_STEAM_OK, why there is no state (above 0), or
 * what is wrong with the call (below 0), in which case nothing was done. Structures are passed with
 * their size: fields that a later version appends are left alone for programs built before. */

#include <stddef.h>

#if defined(__GNUC__) && !defined(_WIN32)
#define VEK_STEAM_API __attribute__((visibility("default")))
#else
#define VEK_STEAM_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What is known: p pressure, t temperature, v specific volume, h enthalpy, s entropy, u internal
 * energy, x quality. */
enum vek_steam_pair {
  VEK_STEAM_PT = 0,
  VEK_STEAM_PX = 1,
  VEK_STEAM_TX = 2,
  VEK_STEAM_PV = 3,
  VEK_STEAM_PH = 4,
  VEK_STEAM_PS = 5,
  VEK_STEAM_PU = 6,
  VEK_STEAM_TV = 7,
  VEK_STEAM_TH = 8,
  VEK_STEAM_TU = 9,
  VEK_STEAM_TS = 10,
  VEK_STEAM_SX = 11,
  VEK_STEAM_HS = 12,
  VEK_STEAM_US = 13,
  VEK_STEAM_VH = 14,
  VEK_STEAM_VS = 15,
  VEK_STEAM_VU = 16,
  VEK_STEAM_VX = 17,
  VEK_STEAM_HX = 18,
  VEK_STEAM_UX = 19,
  VEK_STEAM_HU = 20
};

/* What can be asked for: names, letters and units by vek_steam_property_info_of. */
enum vek_steam_property {
  VEK_STEAM_P = 0,
  VEK_STEAM_T = 1,
  VEK_STEAM_V = 2,
  VEK_STEAM_H = 3,
  VEK_STEAM_S = 4,
  VEK_STEAM_U = 5,
  VEK_STEAM_X = 6,
  VEK_STEAM_DENSITY = 7,
  VEK_STEAM_CP = 8,
  VEK_STEAM_CV = 9,
  VEK_STEAM_SPEED_OF_SOUND = 10,
  VEK_STEAM_ISENTROPIC_EXPONENT = 11,
  VEK_STEAM_VISCOSITY = 12,
  VEK_STEAM_CONDUCTIVITY = 13,
  VEK_STEAM_PRANDTL = 14,
  VEK_STEAM_SURFACE_TENSION = 15,
  VEK_STEAM_REGION = 16,
  VEK_STEAM_ISOTHERMAL_COMPRESSIBILITY = 17, /* -(1/v) (∂v/∂p)t, 1/bar; not in wet states */
  VEK_STEAM_ISOBARIC_EXPANSION = 18,         /* (1/v) (∂v/∂t)p, 1/K; not in wet states */
  VEK_STEAM_JOULE_THOMSON = 19,              /* (∂t/∂p)h, K/bar; not in wet states */
  VEK_STEAM_P_OVER_V = 20,                   /* (∂p/∂v)t, bar kg/m³; not in wet states */
  VEK_STEAM_P_OVER_T = 21,                   /* (∂p/∂t)v, bar/K; not in wet states */
  VEK_STEAM_SATURATION_SLOPE = 22,    /* dp/dt along the saturation line, bar/K; wet states only */
  VEK_STEAM_HEAT_OF_EVAPORATION = 23, /* kJ/kg; wet states only */
  VEK_STEAM_WET_SPEED_OF_SOUND = 24,  /* of both phases in equilibrium, m/s; wet states only */
  VEK_STEAM_KINEMATIC_VISCOSITY = 25, /* m²/s; not in wet states */
  VEK_STEAM_THERMAL_DIFFUSIVITY = 26, /* m²/s; not in wet states */
  VEK_STEAM_GIBBS_ENERGY = 27,        /* h - T s, kJ/kg */
  VEK_STEAM_HELMHOLTZ_ENERGY = 28,    /* u - T s, kJ/kg */
  VEK_STEAM_SUPERHEAT = 29, /* t less the saturation temperature at p, K, negative in water; not in
                               wet states and above the critical pressure */
  VEK_STEAM_SEVERAL = 30,   /* 1: other states have the pair too; 0 */
  VEK_STEAM_APPROXIMATE = 31, /* 1: the nearer state of a boundary; 0 */
  /* added to one of these numbers: the property of a wet state's saturated phase */
  VEK_STEAM_OF_LIQUID = 64,
  VEK_STEAM_OF_VAPOUR = 128
};

/* Where a state lies; the numbers are the region codes of the formulation's users. */
enum vek_steam_region {
  VEK_STEAM_NONE = 0,
  VEK_STEAM_WATER = 1,         /* to 350 °C, at or above the saturation pressure (subregion 1) */
  VEK_STEAM_STEAM = 2,         /* below saturation or, above 350 °C, below the boundary line
                                  (subregion 2) */
  VEK_STEAM_DENSE_STEAM = 3,   /* subregion 3 beside the vapour, and above the critical
                                  temperature */
  VEK_STEAM_HOT_WATER = 4,     /* subregion 3 beside the liquid, 350 °C to the critical
                                  temperature */
  VEK_STEAM_WET_ABOVE_350 = 5, /* liquid and vapour, both of subregion 3 */
  VEK_STEAM_WET = 6            /* liquid and vapour to 350 °C */
};

/* What a function returns. */
enum vek_steam_code {
  VEK_STEAM_OK = 0,
  /* why there is no state */
  VEK_STEAM_NOT_A_NUMBER = 1, /* a given value is not a number */
  VEK_STEAM_PRESSURE = 2,     /* outside 0.006112444 to 1000 bar; with a quality, to 221.2 bar */
  VEK_STEAM_TEMPERATURE = 3,  /* outside 0.01 to 800 °C; with a quality, to 374.15 °C */
  VEK_STEAM_QUALITY = 4,      /* outside 0 to 1 */
  VEK_STEAM_VALUE = 5,        /* volume or caloric value beyond all states */
  VEK_STEAM_NO_STATE = 6,     /* both values are possible, but no state has them together */
  VEK_STEAM_NOT_REACHED = 7,  /* a row of a batch that was stopped before */
  /* what is wrong with a call */
  VEK_STEAM_NO_SUCH_PAIR = -1,
  VEK_STEAM_NO_SUCH_PROPERTY = -2,
  VEK_STEAM_NULL = -3,      /* a pointer that is needed is null */
  VEK_STEAM_SHORT = -4,     /* a structure's size is below that of its first version */
  VEK_STEAM_OVERLAP = -5,   /* places of an output overlap with each other or with other data */
  VEK_STEAM_NO_MEMORY = -6, /* the system has no memory or no thread left */
  VEK_STEAM_NO_SUCH_DIAGRAM = -7,
  VEK_STEAM_NO_SUCH_LINE = -8,
  VEK_STEAM_TOLERANCE = -9 /* a tolerance is outside 1e-6 to 0.1 */
};

/* Properties of one phase. */
typedef struct vek_steam_phase {
  double p;                   /* pressure, bar */
  double t;                   /* temperature, °C */
  double v;                   /* specific volume, m³/kg */
  double h;                   /* enthalpy, kJ/kg */
  double s;                   /* entropy, kJ/(kg K) */
  double u;                   /* internal energy, kJ/kg */
  double density;             /* kg/m³ */
  double cp;                  /* isobaric heat capacity, kJ/(kg K) */
  double cv;                  /* isochoric heat capacity, kJ/(kg K) */
  double speed_of_sound;      /* m/s */
  double isentropic_exponent; /* -(v/p) (∂p/∂v)s */
  double viscosity;           /* dynamic, Pa·s */
  double conductivity;        /* thermal, W/(m K) */
  double prandtl;             /* Prandtl number */
} vek_steam_phase;

/* A state. In wet states v, h, s, u and density are those of the mixture, and what only a phase
 * has, cp to the Prandtl number, is missing unless the quality is 0 or 1; quality and surface
 * tension are missing in one phase.
 */
typedef struct vek_steam_state {
  double p, t, v, h, s, u, density, cp, cv, speed_of_sound, isentropic_exponent, viscosity,
      conductivity, prandtl; /* as of a phase */
  double x;                  /* quality */
  double surface_tension;    /* N/m */
  int region;                /* enum vek_steam_region */
  int several;     /* 1: other states have this pair too, vek_steam_states_of has them all */
  int approximate; /* 1: the pair falls between two subregions, which do not quite meet: this is the
                      nearer state of their boundary */
  int reserved;    /* 0 */
} vek_steam_state;

/* The state that has a pair of properties, in the pair's order. Where several have it, the one of
 * the lowest pressure if the temperature is given, else the one of the highest temperature. The
 * given values come back bit for bit; of an approximate state the second is that of the boundary
 * (the first with entropy second).
 * liquid, vapour: take the saturated phases of a wet state, missing values in one phase; either may
 * be null.
 * Returns a code; when it is not VEK_STEAM_OK, nothing is written. */
VEK_STEAM_API int vek_steam_state_of(int pair, double first, double second, vek_steam_state* state,
                                     size_t state_size, vek_steam_phase* liquid,
                                     vek_steam_phase* vapour, size_t phase_size);

/* All states that have a pair, the one of vek_steam_state_of first; at most 8.
 * states, liquids, vapours: the first one of arrays of capacity elements, the sizes apart; liquids
 * and vapours may be null.
 * count: takes the number of states, of which the first capacity are written. */
VEK_STEAM_API int vek_steam_states_of(int pair, double first, double second,
                                      vek_steam_state* states, size_t state_size,
                                      vek_steam_phase* liquids, vek_steam_phase* vapours,
                                      size_t phase_size, size_t capacity, size_t* count);

/* Saturated liquid and vapour at a pressure (VEK_STEAM_P, to 221.2 bar) or a temperature
 * (VEK_STEAM_T, to 374.15 °C); either phase may be null. */
VEK_STEAM_API int vek_steam_saturation(int given, double value, vek_steam_phase* liquid,
                                       vek_steam_phase* vapour, size_t phase_size);

/* Some properties of a state; computes only what they need. out takes count values in the order of
 * properties, missing ones when there is no state. */
VEK_STEAM_API int vek_steam_values(int pair, double first, double second, size_t count,
                                   const int* properties, double* out);

/* Some properties of all states that have a pair, as vek_steam_states_of orders them. out takes
 * count values in the order of properties for each of the first capacity states, one state after
 * the other; it may be null when capacity is 0. states: takes the number of states */
VEK_STEAM_API int vek_steam_values_of_states(int pair, double first, double second, size_t count,
                                             const int* properties, double* out, size_t capacity,
                                             size_t* states);

/* One property of a state; missing when there is none, and when the pair or the property does not
 * exist. */
VEK_STEAM_API double vek_steam_value(int pair, double first, double second, int property);

/* Threads that a host creates once for many batches; any number of its threads may evaluate on one
 * pool at a time. A child process after fork may go on with its parent's pools: each begins anew
 * there. */
typedef struct vek_steam_pool vek_steam_pool;

/* threads: that work on a batch, the calling one among them; 0: one for each core. Null when the
 * system has no memory or no thread left. */
VEK_STEAM_API vek_steam_pool* vek_steam_pool_create(unsigned threads);

/* Ends the threads. No batch may be under way; null is legal. */
VEK_STEAM_API void vek_steam_pool_destroy(vek_steam_pool* pool);

/* How vek_steam_evaluate works; all zero is the default. */
typedef struct vek_steam_options {
  size_t chunk;      /* rows that a thread takes at a time; 0: 512 */
  const int* cancel; /* null, or what any thread sets to another value than 0 to end the evaluation
                        after the chunks under way */
  int (*progress)(void* user, size_t done, size_t rows); /* null, or called after each chunk from
                         the thread that did it; calls do not overlap; another value than 0 ends the
                         evaluation; must return */
  void* user;
  vek_steam_pool* pool; /* threads of the host's pool; null: threads that end with the batch */
  unsigned threads;     /* without a pool: 0, one for each core */
  unsigned reserved;    /* 0 */
} vek_steam_options;

/* One column of a batch: its value of row i is i * stride bytes behind data. Any stride and any
 * alignment is legal; the places of an output must be apart from each other. */
typedef struct vek_steam_input {
  const void* data; /* doubles */
  ptrdiff_t stride;
} vek_steam_input;
typedef struct vek_steam_output {
  void* data; /* doubles; of the status unsigned chars */
  ptrdiff_t stride;
} vek_steam_output;

/* Properties of many states. Every row has the same bits as from vek_steam_values, whatever the
 * threads, chunks and neighbours are.
 * properties, outputs: count of them each; missing values in rows without a state. An output may be
 * an input, with the same data and stride: it is overwritten.
 * status: null, or takes the code of each row
 * options: null, or of options_size
 * done: null, or takes the rows done: all but for those that were not reached when the evaluation
 * was ended, which get VEK_STEAM_NOT_REACHED and missing values. */
VEK_STEAM_API int vek_steam_evaluate(int pair, size_t rows, vek_steam_input first,
                                     vek_steam_input second, size_t count, const int* properties,
                                     const vek_steam_output* outputs,
                                     const vek_steam_output* status,
                                     const vek_steam_options* options, size_t options_size,
                                     size_t* done);

/* A code with the value that is to blame and what would be accepted. */
typedef struct vek_steam_refusal {
  int code;     /* enum vek_steam_code */
  int quantity; /* letter of the offending value, a blank when it is the pair */
  double value;
  double lowest, highest; /* accepted range */
} vek_steam_refusal;

/* What a code above 0 that came back for a pair says. */
VEK_STEAM_API int vek_steam_refusal_of(int code, int pair, double first, double second,
                                       vek_steam_refusal* refusal, size_t refusal_size);

/* One line of text, such as "pressure 2000 is outside 0.006112444 to 1000 bar", also for a call
 * that was wrong, of which only the code is read. buffer: takes at most size characters with the
 * closing NUL; may be null when size is 0. Returns the length of the whole text without NUL, 0 when
 * refusal is null or short. */
VEK_STEAM_API size_t vek_steam_text(const vek_steam_refusal* refusal, size_t refusal_size,
                                    char* buffer, size_t size);

/* One property; the texts last as long as the library. */
typedef struct vek_steam_property_info {
  const char* name;   /* such as "enthalpy" */
  const char* letter; /* such as "h" */
  const char* unit;   /* such as "kJ/kg"; "" without one */
  int in_one_phase;   /* 1: states of one phase have it */
  int in_wet_states;  /* 1: wet states have it */
} vek_steam_property_info;

/* Properties are numbered from 0, one less than this. */
VEK_STEAM_API int vek_steam_property_count(void);
VEK_STEAM_API int vek_steam_property_info_of(int property, vek_steam_property_info* info,
                                             size_t info_size);

/* One pair: its letters, such as "ph", its properties, and what can be asked of each by itself. */
typedef struct vek_steam_pair_info {
  const char* letters;
  int first, second; /* enum vek_steam_property */
  double first_lowest, first_highest;
  double second_lowest, second_highest;
} vek_steam_pair_info;

/* Pairs are numbered from 0, one less than this. */
VEK_STEAM_API int vek_steam_pair_count(void);
VEK_STEAM_API int vek_steam_pair_info_of(int pair, vek_steam_pair_info* info, size_t info_size);

/* Diagrams, named as usual: the quantity upwards first. */
enum vek_steam_diagram {
  VEK_STEAM_DIAGRAM_HS = 0,
  VEK_STEAM_DIAGRAM_TS = 1,
  VEK_STEAM_DIAGRAM_PH = 2,
  VEK_STEAM_DIAGRAM_PV = 3
};

/* A diagram, with the ranges that show it as printed charts do; its lines go beyond. */
typedef struct vek_steam_diagram_info {
  const char* letters;              /* such as "hs" */
  int x, y;                         /* enum vek_steam_property, across and upwards */
  int x_logarithmic, y_logarithmic; /* 1: the scale is */
  double x_lowest, x_highest;
  double y_lowest, y_highest;
} vek_steam_diagram_info;
VEK_STEAM_API int vek_steam_diagram_info_of(int diagram, vek_steam_diagram_info* info,
                                            size_t info_size);

/* A line of a diagram: states that have a property in common. */
typedef struct vek_steam_line {
  int property; /* enum vek_steam_property: VEK_STEAM_P an isobar, _T an isotherm, _V an isochore,
                   _H an isenthalp, _S an isentrope, _X a quality */
  int reserved; /* 0 */
  double value; /* of the property; the qualities 0 and 1 are saturated liquid and vapour */
  size_t count; /* points, at least 2 */
  const double* x; /* across, and */
  const double* y; /* upwards; both last as long as the lines */
} vek_steam_line;
typedef struct vek_steam_lines vek_steam_lines;

/* The lines of a diagram at the values that printed charts have, each over the whole range of the
 * formulation; on the h-s diagram isotherms only in steam, since in wet steam they are the isobars.
 * tolerance: how far the states between two points may be from the chord, as a share of the width
 * and height of the diagram's ranges, 1e-6 to 0.1; at 1e-4 no bend shows.
 * lines: takes the lines, to be destroyed by the caller */
VEK_STEAM_API int vek_steam_lines_create(int diagram, double tolerance, vek_steam_lines** lines);

/* The lines of some values of a property, in their order: p, t, v, h, s or x. Those of values that
 * no state has, have no points. */
VEK_STEAM_API int vek_steam_lines_of(int diagram, double tolerance, int property, size_t count,
                                     const double* values, vek_steam_lines** lines);

/* The number of lines; 0 of null. */
VEK_STEAM_API size_t vek_steam_lines_count(const vek_steam_lines* lines);

/* One of them, numbered from 0. */
VEK_STEAM_API int vek_steam_lines_line(const vek_steam_lines* lines, size_t i, vek_steam_line* line,
                                       size_t line_size);

/* Null is legal. */
VEK_STEAM_API void vek_steam_lines_destroy(vek_steam_lines* lines);

/* The classic module, as vek_steam_compare uses it; the engine does not link it. The host fills
 * this from vek.h: const vek_steam_module module = VEK_STEAM_MODULE; Its functions must return, and
 * run in the host's floating-point environment. */
typedef int (*vek_steam_finder)(double* a, double* b, double* tol);
typedef struct vek_steam_module {
  int (*request)(vek_steam_finder finder, const double* x, const double* y, const char* list,
                 double* result);
  int (*flag)(void);
  vek_steam_finder finders[18]; /* of the pairs VEK_STEAM_PT to VEK_STEAM_VX */
} vek_steam_module;
#define VEK_STEAM_MODULE                                                                        \
  {                                                                                             \
    vek, VEKHasError, {                                                                         \
      vekrpt_, vekrpx_, vekrtx_, vekrpv_, vekrph_, vekrps_, vekrpu_, vekrtv_, vekrth_, vekrtu_, \
          vekrts_, vekrsx_, vekrhs_, vekrus_, vekrvh_, vekrvs_, vekrvu_, vekrvx_                \
    }                                                                                           \
  }

/* What is compared, in this order: VEK_STEAM_P, T, V, H, S, X, CP, VISCOSITY, CONDUCTIVITY. */
#define VEK_STEAM_COMPARED 9
/* A property counts as the same where it differs by no more than this share of its size, or of
 * 100 °C, 100 kJ/kg, 1 kJ/(kg K) and a quality of 1 where it is smaller, */
#define VEK_STEAM_SAME_TO 1e-6
/* or by no more than twice this share of either given value, the module's tolerance, makes. */
#define VEK_STEAM_MODULE_TOLERANCE 1e-8

/* What both say of a pair, in the engine's units. */
typedef struct vek_steam_comparison {
  int region;                            /* where the module places the state, 7 nowhere */
  int flag;                              /* what the module's error flag says after the request */
  size_t states;                         /* that have the pair, as the engine finds them */
  size_t number;                         /* which of them is compared, from 1; 0 none */
  double module[VEK_STEAM_COMPARED];     /* missing where the module has no value */
  double engine[VEK_STEAM_COMPARED];     /* missing without a state */
  double difference[VEK_STEAM_COMPARED]; /* module less engine */
  int differs[VEK_STEAM_COMPARED];       /* 1: they are not the same; 1 without a state */
  int within_tolerance; /* 1: some that are the same by the module's tolerance alone; 0 */
} vek_steam_comparison;

/* The engine beside the classic module. The module has one state for the process: calls must not
 * overlap with each other, nor with other calls of it. Its diagnostic lines are as after a request.
 * number: the engine's state, from 1, as vek_steam_states_of orders them; 0: the one that the
 * module has, where it is among them, else the first
 * Returns a code; above 0 the engine has no state, and the module's values are there all the same.
 * VEK_STEAM_NO_SUCH_PAIR when the module has no finder for the pair. */
VEK_STEAM_API int vek_steam_compare(const vek_steam_module* module, size_t module_size, int pair,
                                    double first, double second, size_t number,
                                    vek_steam_comparison* comparison, size_t comparison_size);

/* Limits of the formulation and its critical point. */
typedef struct vek_steam_limits {
  double p_lowest, p_highest;                /* bar */
  double t_lowest, t_highest;                /* °C */
  double p_critical, t_critical, v_critical; /* 221.2 bar, 374.15 °C, 0.00317 m³/kg */
} vek_steam_limits;
VEK_STEAM_API int vek_steam_limits_of(vek_steam_limits* limits, size_t limits_size);

/* The phase in words: "water", "steam", "wet steam", "supercritical fluid"; "none" without a state.
 */
VEK_STEAM_API const char* vek_steam_phase_name(int region, double p, double t);

/* The version of the library, as "1.0.0". */
VEK_STEAM_API const char* vek_steam_version(void);

#ifdef __cplusplus
}
#endif

#endif
