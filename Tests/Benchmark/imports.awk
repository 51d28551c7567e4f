# From "objdump -p MODULE": C++ that needs what the module imports, and does nothing with it.
NF == 3 && $1 ~ /^[0-9a-f]+$/ && $2 ~ /^[0-9]+$/ {
  print "extern \"C\" void* __imp_" $3 ";"
  all = all "&__imp_" $3 ","
}
END { print "extern \"C\" __declspec(dllexport) const void* const imports[] = {" all "};" }
