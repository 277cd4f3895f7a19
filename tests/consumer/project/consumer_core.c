#include <math.h>
#include <stdio.h>

#include "zu_pj_edit/zu_pj4_layer.h"

/* Moscow in the seventh Gauss-Kruger zone, by the core that is installed alone. */
int main(void) {
  double x = 39;
  double y = 0;
  zu_rpj_fb_d2* const reproj = zu_rpj_fb_d2_create();
  int const done = zu_rpj_fb_d2_init_ex(reproj, "+proj=longlat +ellps=krass",
                                        "+proj=tmerc +lon_0=39 +x_0=7500000 +ellps=krass") &&
                   zu_rpj_fb_d2_apply_xy(reproj, 1, &x, &y, 1) && fabs(x - 7500000) < 1e-6;
  zu_rpj_fb_d2_destroy(reproj);
  printf("core consumer: %s\n", done ? "transformed" : "not transformed");
  return done ? 0 : 1;
}
