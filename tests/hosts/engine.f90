! The table of engine.c from Fortran.
program engine
  use vek_steam
  implicit none
  real(c_double), parameter :: p_inlet = 160, turbine = 0.87d0
  real(c_double), dimension(4) :: p = [0.03d0, 0.05d0, 0.07d0, 0.1d0], h_outlet, h_feed, h_water
  real(c_double) :: inlet(2), h_ideal(4, 1), efficiency(4)
  integer :: i

  if (steam_values(steam_pt, p_inlet, 540d0, [steam_h, steam_s], inlet) /= steam_ok) error stop
  if (steam_evaluate(steam_ps, p, spread(inlet(2), 1, 4), [steam_h], h_ideal) /= steam_ok) error stop
  h_outlet = inlet(1) - turbine * (inlet(1) - h_ideal(:, 1))
  h_water = steam_value(steam_px, p, 0d0, steam_h)
  h_feed = steam_value(steam_ps, p_inlet, steam_value(steam_px, p, 0d0, steam_s), steam_h)
  efficiency = (inlet(1) - h_outlet - (h_feed - h_water)) / (inlet(1) - h_feed)
  do i = 1, 4
    print '(f5.2, a, f8.6, a, f8.6)', p(i), ' bar: quality ', &
        steam_value(steam_ph, p(i), h_outlet(i), steam_x), ', efficiency ', efficiency(i)
  end do
end program engine
