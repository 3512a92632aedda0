# pelk_mail_date(VARIABLE YYYY-MM-DD): sets the midnight (UTC) that begins the day, in the format of
# RFC 5322. CMake formats only the current time, and only GNU `date` formats another.
function(pelk_mail_date variable date)
  # The pattern drops leading zeros, which arithmetic would reject.
  if(NOT date MATCHES "^([0-9][0-9][0-9][0-9])-0?([1-9]|1[0-2])-0?([1-9]|[12][0-9]|3[01])$")
    message(FATAL_ERROR "\"${date}\" is not a date of the form YYYY-MM-DD.")
  endif()
  set(year ${CMAKE_MATCH_1})
  set(month ${CMAKE_MATCH_2})
  set(day ${CMAKE_MATCH_3})
  math(EXPR index "${month} - 1")
  string(SUBSTRING ${date} 8 2 padded_day)

  # Sakamoto's method: January and February belong to the previous year.
  set(y ${year})
  if(month LESS 3)
    math(EXPR y "${year} - 1")
  endif()
  set(shifts 0 3 2 5 0 3 5 1 4 6 2 4)
  list(GET shifts ${index} shift)
  math(EXPR weekday "(${y} + ${y} / 4 - ${y} / 100 + ${y} / 400 + ${shift} + ${day}) % 7")

  set(weekdays Sun Mon Tue Wed Thu Fri Sat)
  list(GET weekdays ${weekday} weekday)
  set(months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
  list(GET months ${index} month)
  set(${variable} "${weekday}, ${padded_day} ${month} ${year} 00:00:00 +0000" PARENT_SCOPE)
endfunction()
