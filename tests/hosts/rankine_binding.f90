! The cycle of rankine.c from a Fortran 2003 host, with the module's own binding.
program rankine
  use vek_binding
  use, intrinsic :: iso_c_binding, only: c_double, c_int, c_null_char
  implicit none
  real(c_double), parameter :: p_inlet = 160, p_condenser = 0.05_c_double
  real(c_double) :: r(3), h_inlet, h_outlet

  call request(vekrpt, p_inlet, 540.0_c_double, 'H,S ')
  h_inlet = r(1)
  call show('inlet enthalpy', h_inlet)
  call show('inlet entropy', r(2))

  call request(vekrps, p_condenser, r(2), 'H,X ')
  call show('ideal outlet quality', r(2))

  h_outlet = h_inlet - 0.87_c_double * (h_inlet - r(1))
  call request(vekrph, p_condenser, h_outlet, 'T,X,S ')
  call show('outlet temperature', r(1))
  call show('outlet quality', r(2))
  call show('outlet entropy', r(3))

  call request(vekrpx, p_condenser, 0.0_c_double, 'S ')
  call request(vekrps, p_inlet, r(1), 'H,T ')
  call show('feed temperature', r(2))
  call show("turbine's share of the heat", (h_inlet - h_outlet) / (h_inlet - r(1)))

contains

  subroutine request(finder, x, y, list)
    procedure(vek_finder) :: finder
    real(c_double), intent(in) :: x, y
    character(*), intent(in) :: list
    integer(c_int) :: unused
    unused = vek(finder, x, y, list//c_null_char, r)
    if (vekhaserror() /= 0) print '(a)', 'the module reports an error'
  end subroutine request

  subroutine show(name, value)
    character(*), intent(in) :: name
    real(c_double), intent(in) :: value
    print '(a28,f16.9)', name//repeat(' ', 28), value
  end subroutine show

end program rankine
