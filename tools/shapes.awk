# Turns a drawing in PostScript, as the converter of tools/make-art writes it, into the shapes that
# the program paints; src/icons/drawing.h says how they are written. Every path comes with absolute
# coordinates in points, three quarters of a unit; they become hundredths of a unit. The
# rectangular clips only tell the printer where to work.
#
# Variables: width and height of the drawing, in units.

function hundredths(points) { return sprintf("%.0f", points * 100 / 0.75) }

function point(x, y) { return " " hundredths(x) " " hundredths(y) }

# The last numbers, as points.
function points(count,    i, text) {
  for (i = depth - count + 1; i < depth; i += 2) text = text point(stack[i], stack[i + 1])
  depth = 0
  return text
}

function rectangle(    left, top, right, bottom) {
  left = stack[1]; top = stack[2]; right = left + stack[3]; bottom = top + stack[4]
  depth = 0
  return " m" point(left, top) " l" point(right, top) " l" point(right, bottom) \
      " l" point(left, bottom)
}

function hex(share) { return sprintf("%02X", share * 255 + 0.5) }

function fill() {
  if (clip != printed) {
    print (clip == "" ? "unclip" : "clip" clip)
    printed = clip
  }
  print "fill " colour path
  path = start = ""
}

BEGIN { print "size " width * 100 " " height * 100 }
/^%%EndPageSetup/ { drawing = 1; next }
!drawing { next }
/^showpage/ { exit }
{
  for (i = 1; i <= NF; ++i) {
    if ($i ~ /^[-.0-9]+$/) stack[++depth] = $i
    else if ($i == "m") start = " m" points(2)  # behind the last outline stands an empty one
    else if ($i == "l") { path = path start " l" points(2); start = "" }
    else if ($i == "c") { path = path start " c" points(6); start = "" }
    else if ($i == "rg") { colour = hex(stack[1]) hex(stack[2]) hex(stack[3]); depth = 0 }
    else if ($i == "re") { path = path rectangle(); rectangles = 1 }
    else if ($i == "rectfill") { path = rectangle(); fill() }
    else if ($i == "f") { fill(); rectangles = 0 }
    else if ($i == "W") {
      if (!rectangles) clip = path
      path = start = ""
      rectangles = 0
    }
    else if ($i == "Q") clip = ""
    else if ($i == "rectclip" || $i == "cm") depth = 0
    else if ($i !~ /^[hqn]$/) {
      print "shapes.awk: " $i " cannot be drawn" >"/dev/stderr"
      exit 1
    }
  }
}
