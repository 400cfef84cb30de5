! The cycle of rankine.c from a plain Fortran host: the finders are external procedures, whose
! trailing underscore is the compiler's own convention. Finders leave in their arguments the pair on
! which the region's equation is evaluated: a quality and a temperature where the code is 6.
program rankine
  use, intrinsic :: iso_c_binding, only: c_char, c_double, c_funloc, c_funptr, c_int, &
                                         c_null_char
  implicit none
  external :: vekrpt, vekrps, vekrph, vekrpx
  integer :: vekrps, vekrph
  interface
    integer(c_int) function vek(finder, x, y, list, result) bind(c, name='vek')
      import :: c_char, c_double, c_funptr, c_int
      type(c_funptr), value :: finder
      real(c_double) :: x, y, result(*)
      character(kind=c_char) :: list(*)
    end function vek
  end interface
  double precision :: r(3), a, b, tol, h_inlet, s_inlet, h_ideal, h_outlet, h_condensate, h_feed
  integer :: unused
  tol = 1d-8

  unused = vek(c_funloc(vekrpt), 160d0, 540d0, 'H,S '//c_null_char, r)
  h_inlet = r(1)
  s_inlet = r(2)
  call show('inlet enthalpy', h_inlet)
  call show('inlet entropy', s_inlet)

  a = 0.05d0
  b = s_inlet
  if (vekrps(a, b, tol) /= 6) print '(a)', 'the outlet is not wet'
  unused = vek(c_funloc(vekrps), 0.05d0, s_inlet, 'H '//c_null_char, r)
  h_ideal = r(1)
  call show('ideal outlet enthalpy', h_ideal)
  call show('ideal outlet quality', a)

  h_outlet = h_inlet - 0.87d0 * (h_inlet - h_ideal)
  a = 0.05d0
  b = h_outlet
  if (vekrph(a, b, tol) /= 6) print '(a)', 'the outlet is not wet'
  unused = vek(c_funloc(vekrph), 0.05d0, h_outlet, 'S '//c_null_char, r)
  call show('outlet temperature', b)
  call show('outlet quality', a)
  call show('outlet entropy', r(1))

  unused = vek(c_funloc(vekrpx), 0.05d0, 0d0, 'H,S '//c_null_char, r)
  h_condensate = r(1)
  unused = vek(c_funloc(vekrps), 160d0, r(2), 'H,T '//c_null_char, r)
  h_feed = r(1)
  call show('condensate enthalpy', h_condensate)
  call show('feed enthalpy', h_feed)
  call show('feed temperature', r(2))
  call show('ideal efficiency', (h_inlet - h_ideal - h_feed + h_condensate) / (h_inlet - h_feed))
  call show('efficiency', (h_inlet - h_outlet - h_feed + h_condensate) / (h_inlet - h_feed))

contains

  subroutine show(name, value)
    character(*), intent(in) :: name
    double precision, intent(in) :: value
    print '(a24,f16.9)', name//repeat(' ', 24), value
  end subroutine show

end program rankine
