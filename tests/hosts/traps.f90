! A Fortran host compiled with -ffpe-trap=invalid,zero,overflow: a request that overflows raises the
! flag, does not end the program, and leaves the traps on.
program traps
  use vek_binding
  use, intrinsic :: ieee_exceptions, only: ieee_get_halting_mode, ieee_usual
  use, intrinsic :: iso_c_binding, only: c_double, c_int, c_null_char
  implicit none
  real(c_double) :: r(1)
  integer(c_int) :: unused
  logical :: halting(3)

  unused = vek(vekrpt, 1e-310_c_double, 300.0_c_double, 'V '//c_null_char, r)
  if (vekhaserror() /= 1) error stop 'no flag'
  call ieee_get_halting_mode(ieee_usual, halting)
  if (.not. all(halting)) error stop 'the traps are not back'
  unused = vek(vekrpt, 10.0_c_double, 100.0_c_double, 'V '//c_null_char, r)
  if (vekhaserror() /= 0) error stop 'the flag stays'
end program traps
