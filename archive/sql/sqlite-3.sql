-- Version 2 to 3: figures by day, and indexes. The rows are made from the runs afterwards.
DROP INDEX unit_serial;
CREATE INDEX unit_serial ON unit(serial, product);
CREATE INDEX run_not_passed ON run(unit) WHERE code <= 0;
CREATE INDEX run_again ON run(unit) WHERE first = 0;
-- Figures of current runs, so that questions about months need not read their values: a row for each day (since 1970, by
-- the tester's clock; 2147483647 for starts that cannot be read), product, station, layout and set of limits (0: none).
-- The arrays are JSON, by position of the layout: results (with a number or not), failed, not_numbers (not-a-number,
-- infinities), and of the finite numbers counts, firsts (the first one), means (less the first one), squares (sum of
-- squared distances from the mean), mins, maxs; passed_ is of those that passed.
CREATE TABLE summary(
  id INTEGER PRIMARY KEY, product TEXT NOT NULL, station TEXT NOT NULL, layout INTEGER NOT NULL REFERENCES layout,
  limits INTEGER NOT NULL, day INTEGER NOT NULL, runs INTEGER NOT NULL,
  results TEXT NOT NULL, failed TEXT NOT NULL, not_numbers TEXT NOT NULL, counts TEXT NOT NULL, firsts TEXT NOT NULL,
  means TEXT NOT NULL, squares TEXT NOT NULL, mins TEXT NOT NULL, maxs TEXT NOT NULL, passed_counts TEXT NOT NULL,
  passed_firsts TEXT NOT NULL, passed_means TEXT NOT NULL, passed_squares TEXT NOT NULL,
  UNIQUE(product, station, layout, limits, day));
CREATE INDEX summary_day ON summary(day);
PRAGMA user_version = 3;
