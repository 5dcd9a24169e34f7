# The number rules of the engine, fixed by the build: every product and sum is rounded on its own.
add_compile_options(
  -ffp-contract=off     # a*b+c stays two roundings on every processor
  -fno-math-errno       # lets lrint become one instruction; no result depends on errno
)
