# Draws the time of the scan and of the check by size, each beside its peers.
set terminal svg size 900,420 background "white" font "sans-serif,12"
set logscale xy
set format x "10^{%T}"
set format y "10^{%T}"
set grid
set xrange [1000:]
set key bottom right
set style data linespoints
set ylabel "seconds"
set multiplot layout 1,2
set xlabel "opening markers without a closing one"
plot "growth.dat" index "pcre2/openings_of_many_names" title "PCRE2 (JIT)", \
     "growth.dat" index "scan/openings_of_many_names" title "the scan", \
     "growth.dat" index "memchr/openings_of_many_names" title "memchr"
set xlabel "tools"
plot "growth.dat" index "process/check" title "check", \
     "growth.dat" index "process/parse" title "reading, and RapidJSON alone"
