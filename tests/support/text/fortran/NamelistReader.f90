! Reads the namelist file that the library wrote under Wine with the
! compiler's own namelist input and compares every value with the text the
! writer's rules give for what was written. Exit status 1 on any mismatch.
program namelist_reader
  use, intrinsic :: ieee_arithmetic
  implicit none
  character(len=32) :: title, empty, s
  character(len=8) :: names(4)
  logical :: flag, debug
  integer :: nmin, ios, failures
  double precision :: factor, lost, dt, carry, negz, precise, big, pinf, ninf, dnan, xf(3), xp(7), xl(3), xc(5)
  character(len=256) :: path
  namelist /input/ title, empty, factor, lost, flag, debug, nmin, dt, carry, negz, precise, big, &
                   pinf, ninf, dnan, xf, xp, xl, xc, names
  namelist /quotes/ s

  failures = 0
  title = '?'; empty = '?'; factor = -1; lost = -1; flag = .false.; debug = .true.
  nmin = 0; xf = -1; xp = -1; xl = -1; xc = -1; names = '?'
  call get_command_argument(1, path)
  open(10, file=trim(path), status='old', action='read')
  read(10, nml=input, iostat=ios)
  call expect(ios == 0, 'group INPUT reads without error')
  call expect(title == '  beam 2', 'TITLE keeps its leading blanks')
  call expect(empty == '', "EMPTY is the empty text ''")
  call expect(factor == 3.5d0, 'FACTOR reads the unquoted constant 3.5d0')
  call expect(lost == -1, 'LOST was left out, so it keeps its value')
  call expect(flag .and. .not. debug, 'FLAG is .true., DEBUG .false.')
  call expect(nmin == -huge(nmin) - 1, 'NMIN is the lowest 32-bit integer')
  call expect(dt == 0.1d0, 'DT is 0.1')
  call expect(carry == 10, 'CARRY is 9.99999996 rounded up to 10.0')
  call expect(negz == 0, 'NEGZ rounds to 0.0 at seven decimals')
  call expect(precise == 123456.1234568d0, 'PRECISE is rounded to seven decimals')
  call expect(big == 1d20, 'BIG is 1e20 in fixed notation')
  call expect(pinf > huge(pinf) .and. ninf < -huge(ninf), 'PINF and NINF are the infinities')
  call expect(ieee_is_nan(dnan), 'DNAN is NaN')
  call expect(all(xf == [1, 2, 3]), 'XF reads its three values and the comment after them')
  call expect(all(xp == [1, 2, 3, 4, 5, 6, 7]), 'XP reads its seven values over two lines')
  call expect(all(xl == [1, 2, 3]), 'XL reads one value a line')
  ! A comment after a line's last comma ends that record: this reader takes
  ! it as one empty value, so every commented continuation shifts the list.
  call expect(all(xc == [1d0, 2d0, 3d0, -1d0, 4d0]), 'XC: an empty value after the commented first line')
  call expect(all(names == [character(len=8) :: 'a', ' b', '', 'x']), 'NAMES keep their quoted blanks')
  ! 'it's' is written unescaped, so the text is not a valid namelist value.
  s = '?'
  read(10, nml=quotes, iostat=ios)
  call expect(ios /= 0 .or. s /= "it's", "S: an unescaped quote does not read back as it's")
  close(10)
  if (failures > 0) error stop 1
  print '(a)', 'namelist_reader: every value read as written'
contains
  subroutine expect(ok, what)
    logical, intent(in) :: ok
    character(len=*), intent(in) :: what
    if (.not. ok) then
      failures = failures + 1
      print '(2a)', 'namelist_reader: FAILED: ', what
    end if
  end subroutine
end program
