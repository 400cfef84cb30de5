#pragma once

/// Prints the bands of the table of saturated states.
void write_saturated_states();
