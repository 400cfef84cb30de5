#include <stdio.h>

#include "vek/steam.h"

int main(void) {
  vek_steam_state state;
  vek_steam_phase liquid, vapour;
  int code = vek_steam_state_of(VEK_STEAM_PH, 100, 2500, &state, sizeof state, &liquid, &vapour,
                                sizeof liquid);
  if (code == VEK_STEAM_OK) {
    printf("%.4f °C, x = %.6f, vapour %.2f kJ/kg\n", state.t, state.x, vapour.h);
  }

  /* A table of records, in which the enthalpy makes room for the temperature. */
  struct {
    double p, h;
    char tag;
  } rows[] = {{10, 3000, 'a'}, {50, 3000, 'b'}, {2000, 3000, 'c'}};
  int wanted[] = {VEK_STEAM_T};
  unsigned char codes[3];
  vek_steam_output t = {&rows[0].h, sizeof rows[0]}, status = {codes, 1};
  vek_steam_evaluate(VEK_STEAM_PH, 3, (vek_steam_input){&rows[0].p, sizeof rows[0]},
                     (vek_steam_input){&rows[0].h, sizeof rows[0]}, 1, wanted, &t, &status, NULL, 0,
                     NULL);
  for (int i = 0; i < 3; i++) {
    vek_steam_refusal why;
    char line[100];
    vek_steam_refusal_of(codes[i], VEK_STEAM_PH, rows[i].p, 3000, &why, sizeof why);
    vek_steam_text(&why, sizeof why, line, sizeof line);
    printf("%c: %.4f °C, %s\n", rows[i].tag, rows[i].h, line);
  }
  return 0;
}
