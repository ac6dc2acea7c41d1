"""The functions of C that read or write numbers through a locale."""

_NUMBER = r"(?:d|f|ld|l|ll|ul|ull|q|uq|imax|umax|f\d+x?)"
FUNCTIONS = (
    rf"(?:(?:strto|wcsto){_NUMBER}|strfrom{_NUMBER}|ato(?:f|i|l|ll|q)|q?[efg]cvt(?:_r)?|strfmon"
    r"|v?(?:f|s|sn|d|as|obstack_)?printf|v?[fs]?scanf|v?[fs]?wprintf|v?[fs]?wscanf)(?:_l)?")
# As objects name them: of a certain standard, checked, or the C library's own.
SYMBOLS = rf"(?:__isoc\d+_|__)?{FUNCTIONS}(?:_chk|_internal)?"
FACETS = r"(?:num_put|num_get|numpunct|money_put|money_get|moneypunct)(?:_byname)?"
