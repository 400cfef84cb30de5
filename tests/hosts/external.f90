! A plain Fortran host: the finders are external procedures, whose trailing underscore is the compiler's
! own convention. A finder leaves in its arguments the pair on which the region's equation is evaluated.
program external_finders
  use, intrinsic :: iso_c_binding, only: c_char, c_double, c_funloc, c_funptr, c_int, c_null_char
  implicit none
  external :: vekrph
  integer :: vekrph
  interface
    integer(c_int) function vek(finder, x, y, list, result) bind(c, name='vek')
      import :: c_char, c_double, c_funptr, c_int
      type(c_funptr), value :: finder
      real(c_double) :: x, y, result(*)
      character(kind=c_char) :: list(*)
    end function vek
  end interface
  double precision :: r(2), a, b, tol
  integer :: unused
  tol = 1d-8
  a = 0.05d0
  b = 2000d0
  if (vekrph(a, b, tol) /= 6) error stop 'not wet'
  unused = vek(c_funloc(vekrph), 0.05d0, 2000d0, 'X,T '//c_null_char, r)
  if (abs(a - r(1)) + abs(b - r(2)) > 0 .or. a <= 0 .or. b < 32) error stop 'another pair is left'
end program external_finders
