#ifndef VEK_VEK_H
#define VEK_VEK_H

/* Properties of water and steam on the 1967 industrial formulation (IFC-67): the classic module.
 *
 * Units: °C, bar, m³/kg, kJ/kg, kJ/(kg K), Pa·s; quality from 0 to 1. All state is process-wide: a
 * host must serialise its calls. Nothing is returned as a status: call VEKHasError after a request.
 */

#if defined(__GNUC__) && !defined(_WIN32)
#define VEK_API __attribute__((visibility("default")))
#else
#define VEK_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The module object: opaque to hosts. */
typedef struct TModule TModule;

/* A region finder. Places the state given by two known properties and overwrites them with the pair
 * on which the region's equation is evaluated:
 *
 *   code 1  water to 350 °C                        pressure, temperature
 *        2  steam                                  pressure, temperature
 *        3  near-critical steam and supercritical  specific volume, temperature
 *        4  near-critical water                    specific volume, temperature
 *        5  wet, above 350 °C                      quality, temperature
 *        6  wet, to 350 °C                         quality, temperature
 *        7  no state can be placed                 unchanged
 *
 * With codes 5 and 6 vekrpt_ leaves pressure and temperature. tol is a relative tolerance; vek
 * passes 1e-8. */
typedef int (*VekFinder)(double* a, double* b, double* tol);

/* Evaluates the properties in list for the state that finder places from the known values x and y,
 * in the order of the finder's name. The list holds P, T, V, H, S, X, CP, DV and TC, separated by
 * commas, points or blanks, and should end with a separator. result takes one double per item;
 * slots of items without a value are left as they are. x and y are not changed.
 * Returns nothing of use. */
VEK_API int vek(VekFinder finder, const double* x, const double* y, const char* list,
                double* result);

/* 0 nothing wrong since the last request began to evaluate its list, 1 floating-point fault,
 * 2 diagnostic line written. Not cleared by the call. */
VEK_API int VEKHasError(void);

/* The module object made when the module was loaded. */
VEK_API TModule* GetVekModule(void);

/* p pressure, t temperature, v specific volume, h enthalpy, s entropy, u internal energy,
 * x quality. */
VEK_API int vekrpt_(double* p, double* t, double* tol);
VEK_API int vekrpx_(double* p, double* x, double* tol);
VEK_API int vekrtx_(double* t, double* x, double* tol);
VEK_API int vekrpv_(double* p, double* v, double* tol);
VEK_API int vekrph_(double* p, double* h, double* tol);
VEK_API int vekrps_(double* p, double* s, double* tol);
VEK_API int vekrpu_(double* p, double* u, double* tol);
VEK_API int vekrtv_(double* t, double* v, double* tol);
VEK_API int vekrth_(double* t, double* h, double* tol);
VEK_API int vekrtu_(double* t, double* u, double* tol);
VEK_API int vekrts_(double* t, double* s, double* tol);
VEK_API int vekrsx_(double* s, double* x, double* tol);
VEK_API int vekrhs_(double* h, double* s, double* tol);
VEK_API int vekrus_(double* u, double* s, double* tol);
VEK_API int vekrvh_(double* v, double* h, double* tol);
VEK_API int vekrvs_(double* v, double* s, double* tol);
VEK_API int vekrvu_(double* v, double* u, double* tol);
VEK_API int vekrvx_(double* v, double* x, double* tol);

#ifdef __cplusplus
}
#endif

#endif
