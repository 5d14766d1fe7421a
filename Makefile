# Shortcuts for the two things worth showing off; building and testing go through scripts/.
.PHONY: demo bench

demo:
	./scripts/demo.sh

bench:
	./scripts/bench.sh
