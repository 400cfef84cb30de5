! The power plant of cycle.sh on the classic module.
!   gfortran $(pkg-config --variable=includedir vek)/vek/vek.f90 cycle.f90 $(pkg-config --libs vek)
program cycle
  use vek_binding
  use, intrinsic :: iso_c_binding, only: c_double, c_int, c_null_char
  implicit none
  integer, parameter :: dp = c_double
  real(dp), parameter :: p_boiler = 80, p_closed = 20, p_reheat = 7, p_open = 3
  real(dp), parameter :: p_condenser = 0.08_dp, power = 100000
  real(dp) :: live, s_live, closed, cold, hot, s_hot, open_heater, exhaust, x_exhaust
  real(dp) :: condensate, s_condensate, pumped, heated, s_heated, fed, feedwater, drain
  real(dp) :: y, z, high, low, pumps, heat

  call enthalpy(live, vekrpt, p_boiler, 480.0_dp, s=s_live)
  call enthalpy(closed, vekrps, p_closed, s_live)
  call enthalpy(cold, vekrps, p_reheat, s_live)
  call enthalpy(hot, vekrpt, p_reheat, 440.0_dp, s=s_hot)
  call enthalpy(open_heater, vekrps, p_open, s_hot)
  call enthalpy(exhaust, vekrps, p_condenser, s_hot, x=x_exhaust)
  call enthalpy(condensate, vekrpx, p_condenser, 0.0_dp, s=s_condensate)
  call enthalpy(pumped, vekrps, p_open, s_condensate)
  call enthalpy(heated, vekrpx, p_open, 0.0_dp, s=s_heated)
  call enthalpy(fed, vekrps, p_boiler, s_heated)
  call enthalpy(feedwater, vekrpt, p_boiler, 205.0_dp)
  call enthalpy(drain, vekrpx, p_closed, 0.0_dp)

  y = (feedwater - fed) / (closed - drain)
  z = ((1 - y) * pumped + y * drain - heated) / (pumped - open_heater)
  high = live - closed + (1 - y) * (closed - cold)
  low = (1 - y) * (hot - open_heater) + (1 - y - z) * (open_heater - exhaust)
  pumps = (1 - y - z) * (pumped - condensate) + fed - heated
  heat = live - feedwater + (1 - y) * (hot - cold)

  call row('live steam enthalpy', live, 'kJ/kg')
  call row('feedwater enthalpy', feedwater, 'kJ/kg')
  call row('exhaust quality', x_exhaust, '')
  call row('share to the closed heater', y, '')
  call row('share to the open heater', z, '')
  call row('work of the first turbine', high, 'kJ/kg')
  call row('work of the second turbine', low, 'kJ/kg')
  call row('work of the pumps', pumps, 'kJ/kg')
  call row('heat of boiler and reheater', heat, 'kJ/kg')
  call row('thermal efficiency', (high + low - pumps) / heat, '')
  call row('live steam flow', power / (high + low - pumps), 'kg/s')

contains

  ! Enthalpy and, where they are wanted, entropy and quality.
  subroutine enthalpy(h, finder, first, second, s, x)
    real(dp), intent(out) :: h
    procedure(vek_finder) :: finder
    real(dp), intent(in) :: first, second
    real(dp), intent(out), optional :: s, x
    real(dp) :: r(3)
    integer(c_int) :: unused
    unused = vek(finder, first, second, 'H,S,X '//c_null_char, r)
    if (vekhaserror() /= 0) error stop 'the module reports an error'
    h = r(1)
    if (present(s)) s = r(2)
    if (present(x)) x = r(3)
  end subroutine enthalpy

  subroutine row(name, value, unit)
    character(*), intent(in) :: name, unit
    real(dp), intent(in) :: value
    print '(a28,f16.8,1x,a)', name//repeat(' ', 28), value, unit
  end subroutine row

end program cycle
