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

-- For people and other tools: one row for each measurement, day, product, station and set of limits. Sigma is that of a
-- sample.
CREATE VIEW measured_day AS
  SELECT CASE WHEN s.day < 2147483647 THEN date(s.day * 86400, 'unixepoch') END AS day, s.product, s.station,
    l.program, c.path, c.ident, i.component, i.unit,
    m.lower ->> i.pos AS lower, m.upper ->> i.pos AS upper,
    s.results ->> i.pos AS results, s.failed ->> i.pos AS failed, s.counts ->> i.pos AS count,
    CASE WHEN (s.counts ->> i.pos) > 0 THEN (s.firsts ->> i.pos) + (s.means ->> i.pos) END AS mean,
    CASE WHEN (s.counts ->> i.pos) > 1 THEN sqrt((s.squares ->> i.pos) / ((s.counts ->> i.pos) - 1)) END AS sigma,
    s.mins ->> i.pos AS min, s.maxs ->> i.pos AS max
  FROM summary s JOIN layout l ON l.id = s.layout JOIN layout_item i ON i.layout = s.layout
    JOIN component c ON c.id = i.component LEFT JOIN limit_set m ON m.id = s.limits
  WHERE c.kind = 7 AND (s.results ->> i.pos) > 0;
PRAGMA user_version = 3;
