! Properties of water and steam on the 1967 industrial formulation (IFC-67), for Fortran hosts.
!
! Units and rules are those of vek.h. A request passes a finder, the two values that it knows and a
! list that ends with a separator and a NUL:
!
!   use vek_binding
!   use, intrinsic :: iso_c_binding
!   real(c_double) :: r(2)
!   integer(c_int) :: unused
!   unused = vek(vekrph, 160d0, 3410d0, 'T,S '//c_null_char, r)
!   if (vekhaserror() /= 0) error stop
module vek_binding
  use, intrinsic :: iso_c_binding, only: c_char, c_double, c_int, c_ptr
  implicit none
  private :: c_char, c_double, c_int, c_ptr

  abstract interface
    ! A finder called directly: gives the region code and overwrites the known values with the pair
    ! on which the region's equation is evaluated.
    integer(c_int) function vek_finder(a, b, tol) bind(c)
      import :: c_double, c_int
      real(c_double), intent(inout) :: a, b, tol
    end function vek_finder
  end interface

  interface
    integer(c_int) function vek(finder, x, y, list, result) bind(c, name="vek")
      import :: c_char, c_double, c_int, vek_finder
      procedure(vek_finder) :: finder
      real(c_double), intent(in) :: x, y
      character(kind=c_char), intent(in) :: list(*)
      real(c_double), intent(inout) :: result(*)
    end function vek

    integer(c_int) function vekhaserror() bind(c, name="VEKHasError")
      import :: c_int
    end function vekhaserror

    type(c_ptr) function getvekmodule() bind(c, name="GetVekModule")
      import :: c_ptr
    end function getvekmodule
  end interface

  procedure(vek_finder), bind(c, name="vekrpt_") :: vekrpt
  procedure(vek_finder), bind(c, name="vekrpx_") :: vekrpx
  procedure(vek_finder), bind(c, name="vekrtx_") :: vekrtx
  procedure(vek_finder), bind(c, name="vekrpv_") :: vekrpv
  procedure(vek_finder), bind(c, name="vekrph_") :: vekrph
  procedure(vek_finder), bind(c, name="vekrps_") :: vekrps
  procedure(vek_finder), bind(c, name="vekrpu_") :: vekrpu
  procedure(vek_finder), bind(c, name="vekrtv_") :: vekrtv
  procedure(vek_finder), bind(c, name="vekrth_") :: vekrth
  procedure(vek_finder), bind(c, name="vekrtu_") :: vekrtu
  procedure(vek_finder), bind(c, name="vekrts_") :: vekrts
  procedure(vek_finder), bind(c, name="vekrsx_") :: vekrsx
  procedure(vek_finder), bind(c, name="vekrhs_") :: vekrhs
  procedure(vek_finder), bind(c, name="vekrus_") :: vekrus
  procedure(vek_finder), bind(c, name="vekrvh_") :: vekrvh
  procedure(vek_finder), bind(c, name="vekrvs_") :: vekrvs
  procedure(vek_finder), bind(c, name="vekrvu_") :: vekrvu
  procedure(vek_finder), bind(c, name="vekrvx_") :: vekrvx
end module vek_binding
