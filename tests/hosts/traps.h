/* Floating-point traps as the platform's hosts switch them on. */

/* Lets invalid operations, divisions by zero and overflows raise SIGFPE; 0 where it cannot. */
int enable_traps(void);

/* The traps that are on, as the platform codes them, with what else a host sets there. */
unsigned traps(void);

/* Divides 1 by 0 in the unit whose traps are delivered as SIGFPE. */
void divide_by_zero(void);
