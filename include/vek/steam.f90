! The engine: properties of water and steam on the 1967 industrial formulation (IFC-67), from any two
! known properties, for Fortran programs.
!
! Units, range and rules are those of steam.h: bar, °C, m³/kg, kJ/kg, kJ/(kg K); missing values are not
! a number; functions that give a code give steam_ok, why there is no state (above 0), or what is wrong
! with the call (below 0). Compile this file with the program and link libvek-steam.
!
!   use vek_steam
!   real(c_double) :: p(1000), h(1000), t(1000), out(1000, 2)
!   t = steam_value(steam_ph, p, h, steam_t)                           ! one or many
!   if (steam_evaluate(steam_ph, p, h, [steam_t, steam_s], out) /= steam_ok) error stop   ! all cores
module vek_steam
  use, intrinsic :: iso_c_binding
  implicit none
  private
  public :: c_double, c_int, c_int8_t
  public :: steam_value, steam_values, steam_state_of, steam_states_of, steam_saturation
  public :: steam_evaluate, steam_text, steam_phase_name

  ! What is known.
  integer(c_int), parameter, public :: steam_pt = 0, steam_px = 1, steam_tx = 2, steam_pv = 3, &
      steam_ph = 4, steam_ps = 5, steam_pu = 6, steam_tv = 7, steam_th = 8, steam_tu = 9, &
      steam_ts = 10, steam_sx = 11, steam_hs = 12, steam_us = 13, steam_vh = 14, steam_vs = 15, &
      steam_vu = 16, steam_vx = 17, steam_hx = 18, steam_ux = 19, steam_hu = 20

  ! What can be asked for.
  integer(c_int), parameter, public :: steam_p = 0, steam_t = 1, steam_v = 2, steam_h = 3, &
      steam_s = 4, steam_u = 5, steam_x = 6, steam_density = 7, steam_cp = 8, steam_cv = 9, &
      steam_speed_of_sound = 10, steam_isentropic_exponent = 11, steam_viscosity = 12, &
      steam_conductivity = 13, steam_prandtl = 14, steam_surface_tension = 15, steam_region = 16, &
      steam_isothermal_compressibility = 17, steam_isobaric_expansion = 18, &
      steam_joule_thomson = 19, steam_p_over_v = 20, steam_p_over_t = 21, &
      steam_saturation_slope = 22, steam_heat_of_evaporation = 23, &
      steam_wet_speed_of_sound = 24, steam_kinematic_viscosity = 25, &
      steam_thermal_diffusivity = 26, steam_gibbs_energy = 27, steam_helmholtz_energy = 28, &
      steam_superheat = 29, steam_several = 30, steam_approximate = 31
  ! Added to one of these: the property of a wet state's saturated phase.
  integer(c_int), parameter, public :: steam_of_liquid = 64, steam_of_vapour = 128

  ! Regions.
  integer(c_int), parameter, public :: steam_none = 0, steam_water = 1, steam_steam = 2, &
      steam_dense_steam = 3, steam_hot_water = 4, steam_wet_above_350 = 5, steam_wet = 6

  ! Codes.
  integer(c_int), parameter, public :: steam_ok = 0, steam_not_a_number = 1, steam_pressure = 2, &
      steam_temperature = 3, steam_quality = 4, steam_range = 5, steam_no_state = 6, &
      steam_not_reached = 7, steam_no_such_pair = -1, steam_no_such_property = -2, &
      steam_null = -3, steam_short = -4, steam_overlap = -5, steam_no_memory = -6, &
      steam_shape = -100  ! arrays of different lengths

  ! Properties of one phase.
  type, bind(c), public :: steam_phase
    real(c_double) :: p, t, v, h, s, u, density, cp, cv, speed_of_sound, isentropic_exponent, &
        viscosity, conductivity, prandtl
  end type steam_phase

  ! A state; several and approximate are 1 or 0.
  type, bind(c), public :: steam_state
    real(c_double) :: p, t, v, h, s, u, density, cp, cv, speed_of_sound, isentropic_exponent, &
        viscosity, conductivity, prandtl, x, surface_tension
    integer(c_int) :: region, several, approximate, reserved
  end type steam_state

  type, bind(c) :: column
    type(c_ptr) :: data
    integer(c_intptr_t) :: stride
  end type column

  type, bind(c) :: options
    integer(c_size_t) :: chunk = 0
    type(c_ptr) :: cancel = c_null_ptr
    type(c_funptr) :: progress = c_null_funptr
    type(c_ptr) :: user = c_null_ptr, pool = c_null_ptr
    integer(c_int) :: threads = 0, reserved = 0
  end type options

  type, bind(c) :: refusal
    integer(c_int) :: code, quantity
    real(c_double) :: value, lowest, highest
  end type refusal

  interface
    pure real(c_double) function c_value(pair, first, second, property) &
        bind(c, name="vek_steam_value")
      import :: c_double, c_int
      integer(c_int), intent(in), value :: pair, property
      real(c_double), intent(in), value :: first, second
    end function c_value

    integer(c_int) function c_values(pair, first, second, count, properties, out) &
        bind(c, name="vek_steam_values")
      import :: c_double, c_int, c_size_t
      integer(c_int), intent(in), value :: pair
      real(c_double), intent(in), value :: first, second
      integer(c_size_t), intent(in), value :: count
      integer(c_int), intent(in) :: properties(*)
      real(c_double), intent(out) :: out(*)
    end function c_values

    integer(c_int) function c_states_of(pair, first, second, states, state_size, liquids, &
        vapours, phase_size, capacity, count) bind(c, name="vek_steam_states_of")
      import :: c_double, c_int, c_size_t, steam_phase, steam_state
      integer(c_int), intent(in), value :: pair
      real(c_double), intent(in), value :: first, second
      type(steam_state), intent(out) :: states(*)
      integer(c_size_t), intent(in), value :: state_size, phase_size, capacity
      type(steam_phase), intent(out), optional :: liquids(*), vapours(*)
      integer(c_size_t), intent(out) :: count
    end function c_states_of

    integer(c_int) function c_saturation(given, value, liquid, vapour, phase_size) &
        bind(c, name="vek_steam_saturation")
      import :: c_double, c_int, c_size_t, steam_phase
      integer(c_int), intent(in), value :: given
      real(c_double), intent(in), value :: value
      type(steam_phase), intent(out), optional :: liquid, vapour
      integer(c_size_t), intent(in), value :: phase_size
    end function c_saturation

    integer(c_int) function c_evaluate(pair, rows, first, second, count, properties, outputs, &
        status, how, options_size, done) bind(c, name="vek_steam_evaluate")
      import :: c_int, c_size_t, column, options
      integer(c_int), intent(in), value :: pair
      integer(c_size_t), intent(in), value :: rows, count, options_size
      type(column), intent(in), value :: first, second
      integer(c_int), intent(in) :: properties(*)
      type(column), intent(in) :: outputs(*)
      type(column), intent(in), optional :: status
      type(options), intent(in) :: how
      integer(c_size_t), intent(out), optional :: done
    end function c_evaluate

    integer(c_int) function c_refusal_of(code, pair, first, second, out, refusal_size) &
        bind(c, name="vek_steam_refusal_of")
      import :: c_double, c_int, c_size_t, refusal
      integer(c_int), intent(in), value :: code, pair
      real(c_double), intent(in), value :: first, second
      type(refusal), intent(out) :: out
      integer(c_size_t), intent(in), value :: refusal_size
    end function c_refusal_of

    integer(c_size_t) function c_text(of, refusal_size, buffer, size) bind(c, name="vek_steam_text")
      import :: c_char, c_size_t, refusal
      type(refusal), intent(in) :: of
      integer(c_size_t), intent(in), value :: refusal_size, size
      character(kind=c_char), intent(out) :: buffer(*)
    end function c_text

    type(c_ptr) function c_phase_name(region, p, t) bind(c, name="vek_steam_phase_name")
      import :: c_double, c_int, c_ptr
      integer(c_int), intent(in), value :: region
      real(c_double), intent(in), value :: p, t
    end function c_phase_name
  end interface

contains

  ! One property of a state, not a number when there is none; of arrays, element by element.
  elemental real(c_double) function steam_value(pair, first, second, property)
    integer(c_int), intent(in) :: pair, property
    real(c_double), intent(in) :: first, second
    steam_value = c_value(pair, first, second, property)
  end function steam_value

  ! Some properties of one state, at once.
  integer(c_int) function steam_values(pair, first, second, properties, out) result(code)
    integer(c_int), intent(in) :: pair, properties(:)
    real(c_double), intent(in) :: first, second
    real(c_double), intent(out) :: out(:)
    real(c_double) :: values(size(properties))
    code = steam_shape
    if (size(out) /= size(properties)) return
    code = c_values(pair, first, second, size(properties, kind=c_size_t), properties, values)
    if (code >= 0) out = values
  end function steam_values

  ! The state that counts, with the saturated phases of a wet one.
  integer(c_int) function steam_state_of(pair, first, second, state, liquid, vapour) result(code)
    integer(c_int), intent(in) :: pair
    real(c_double), intent(in) :: first, second
    type(steam_state), intent(out) :: state
    type(steam_phase), intent(out), optional :: liquid, vapour
    type(steam_state) :: states(1)
    type(steam_phase) :: liquids(1), vapours(1)
    integer(c_size_t) :: count
    code = c_states_of(pair, first, second, states, c_sizeof(states(1)), liquids, vapours, &
        c_sizeof(liquids(1)), 1_c_size_t, count)
    if (code /= steam_ok) return
    state = states(1)
    if (present(liquid)) liquid = liquids(1)
    if (present(vapour)) vapour = vapours(1)
  end function steam_state_of

  ! All states of a pair, at most 8: count of them, the first size(states) of which are given.
  integer(c_int) function steam_states_of(pair, first, second, states, count) result(code)
    integer(c_int), intent(in) :: pair
    real(c_double), intent(in) :: first, second
    type(steam_state), intent(out) :: states(:)
    integer, intent(out) :: count
    type(steam_state) :: found(size(states))
    integer(c_size_t) :: number
    number = 0
    code = c_states_of(pair, first, second, found, c_sizeof(found(1)), &
        phase_size=0_c_size_t, capacity=size(states, kind=c_size_t), count=number)
    count = int(number)
    if (code == steam_ok) states(:min(count, size(states))) = found(:min(count, size(states)))
  end function steam_states_of

  ! Saturated liquid and vapour at a pressure (given = steam_p) or a temperature (steam_t).
  integer(c_int) function steam_saturation(given, value, liquid, vapour) result(code)
    integer(c_int), intent(in) :: given
    real(c_double), intent(in) :: value
    type(steam_phase), intent(out) :: liquid, vapour
    code = c_saturation(given, value, liquid, vapour, c_sizeof(liquid))
  end function steam_saturation

  ! Properties of many states on all cores: column i of out takes properties(i), status the code of
  ! each row. Sections of arrays go in as they are.
  integer(c_int) function steam_evaluate(pair, first, second, properties, out, status, threads) &
      result(code)
    integer(c_int), intent(in) :: pair, properties(:)
    real(c_double), intent(in), target :: first(:), second(:)
    real(c_double), intent(inout), target :: out(:, :)
    integer(c_int8_t), intent(inout), optional, target :: status(:)
    integer, intent(in), optional :: threads
    type(column) :: outputs(size(properties)), codes
    type(options) :: how
    integer(c_size_t) :: rows
    integer :: i
    rows = size(first, kind=c_size_t)
    code = steam_shape
    if (size(second) /= rows .or. size(out, 1) /= rows .or. size(out, 2) /= size(properties)) return
    if (present(threads)) how%threads = int(threads, c_int)
    do i = 1, size(properties)
      outputs(i) = column_of(out(:, i))
    end do
    if (.not. present(status)) then
      code = c_evaluate(pair, rows, column_of(first), column_of(second), &
          size(properties, kind=c_size_t), properties, outputs, how=how, options_size=c_sizeof(how))
      return
    end if
    if (size(status) /= rows) return
    codes%data = c_null_ptr
    codes%stride = 1
    if (rows > 0) codes%data = c_loc(status(1))
    if (rows > 1) codes%stride = address(c_loc(status(2))) - address(c_loc(status(1)))
    code = c_evaluate(pair, rows, column_of(first), column_of(second), &
        size(properties, kind=c_size_t), properties, outputs, codes, how, c_sizeof(how))
  end function steam_evaluate

  ! What a code says of the values, in one line.
  function steam_text(code, pair, first, second) result(text)
    integer(c_int), intent(in) :: code, pair
    real(c_double), intent(in) :: first, second
    character(len=:), allocatable :: text
    character(kind=c_char) :: buffer(200)
    type(refusal) :: why
    integer(c_size_t) :: length, i
    why = refusal(code, ichar(' '), 0, 0, 0)
    if (code > 0) length = c_refusal_of(code, pair, first, second, why, c_sizeof(why))
    length = min(c_text(why, c_sizeof(why), buffer, size(buffer, kind=c_size_t)), 199_c_size_t)
    allocate (character(len=length) :: text)
    do i = 1, length
      text(i:i) = buffer(i)
    end do
  end function steam_text

  ! The phase of a state in words.
  function steam_phase_name(state) result(name)
    type(steam_state), intent(in) :: state
    character(len=:), allocatable :: name
    character(kind=c_char), pointer :: letters(:)
    integer :: i
    call c_f_pointer(c_phase_name(state%region, state%p, state%t), letters, [20])
    name = ''
    do i = 1, 20
      if (letters(i) == c_null_char) exit
      name = name // letters(i)
    end do
  end function steam_phase_name

  pure integer(c_intptr_t) function address(pointer)
    type(c_ptr), intent(in) :: pointer
    address = transfer(pointer, 0_c_intptr_t)
  end function address

  type(column) function column_of(values)
    real(c_double), intent(in), target :: values(:)
    column_of%data = c_null_ptr
    column_of%stride = 8
    if (size(values) > 0) column_of%data = c_loc(values(1))
    if (size(values) > 1) column_of%stride = address(c_loc(values(2))) - address(c_loc(values(1)))
  end function column_of

end module vek_steam
