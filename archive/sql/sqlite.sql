-- Tables of an archive in SQLite (3.38 or later: ->>). A statement ends with ";" at the end of a line.
PRAGMA application_id = 0x5A594E41; -- "ZYNA"
PRAGMA user_version = 5;

-- Who a run is about. With a serial, ident is '': it plays no part. A unit without both is a unit of its own for each
-- run: own then tells them apart, else it is ''. A panel's own runs belong to the panel, which is no unit.
CREATE TABLE unit(
  id INTEGER PRIMARY KEY, product TEXT NOT NULL, lot TEXT NOT NULL, serial TEXT NOT NULL, ident TEXT NOT NULL,
  wafer TEXT NOT NULL, is_panel INTEGER NOT NULL, own TEXT NOT NULL,
  seen_ident TEXT NOT NULL, -- the ident as it was first seen, also beside a serial
  UNIQUE(product, lot, serial, ident, wafer, is_panel, own));
CREATE INDEX unit_serial ON unit(serial, product);

-- One row for each component of a program: ids and names of group, step and measurement; a repeated one gets "#2".
CREATE TABLE component(
  id INTEGER PRIMARY KEY, program TEXT NOT NULL, identity TEXT NOT NULL, path TEXT NOT NULL,
  kind INTEGER NOT NULL, -- 2 group, 3 step, 4 parameter, 7 measurement
  parent INTEGER REFERENCES component, ident TEXT NOT NULL, name TEXT NOT NULL, UNIQUE(program, identity));

-- What position of the arrays is whose; one layout for a version of a program. A run that lacks components (it was
-- stopped) uses the same layout, with null codes.
CREATE TABLE layout(
  id INTEGER PRIMARY KEY, hash BLOB NOT NULL UNIQUE, program TEXT NOT NULL, program_ident TEXT NOT NULL,
  version TEXT NOT NULL);
CREATE TABLE layout_item(
  layout INTEGER NOT NULL REFERENCES layout, pos INTEGER NOT NULL, component INTEGER NOT NULL REFERENCES component,
  data_type INTEGER NOT NULL, -- 7 integer, 8 real, 9 text, 0 none
  unit TEXT, unit_code INTEGER, factor INTEGER, PRIMARY KEY(layout, pos)) WITHOUT ROWID;
CREATE INDEX layout_item_component ON layout_item(component);

-- Limits by position, as JSON arrays; null where there is none. The texts are JSON objects, position -> text: limits
-- that are no numbers or do not fit a double.
CREATE TABLE limit_set(
  id INTEGER PRIMARY KEY, hash BLOB NOT NULL UNIQUE, lower TEXT NOT NULL, lower_op TEXT NOT NULL, upper TEXT NOT NULL,
  upper_op TEXT NOT NULL, nominal TEXT, inverted TEXT, lower_texts TEXT, upper_texts TEXT);

-- Attributes of components as JSON objects, position -> text: once for all runs that have the same, as instruments and
-- the like seldom change.
CREATE TABLE attribute_set(id INTEGER PRIMARY KEY, attributes TEXT NOT NULL UNIQUE);

-- Slim: lists over many runs read only this table.
CREATE TABLE run(
  id INTEGER PRIMARY KEY, unit INTEGER NOT NULL REFERENCES unit, program TEXT NOT NULL,
  start INTEGER NOT NULL,     -- ms since 1970, UTC; 9223372036854775807 for one that cannot be read: it comes last
  utc_offset INTEGER,         -- minutes, as written; null where none was
  run_index INTEGER NOT NULL, -- order of the runs of one report or lot file that share their start
  test_index INTEGER NOT NULL,
  code INTEGER NOT NULL,
  first INTEGER NOT NULL,     -- 1: the first current run of its unit and program; kept when older runs are removed
  current INTEGER NOT NULL DEFAULT 1, -- 0: replaced by a later revision
  is_panel INTEGER NOT NULL,  -- as in its unit
  station TEXT NOT NULL, position INTEGER, site INTEGER, x INTEGER, y INTEGER, hard_bin INTEGER, soft_bin INTEGER,
  layout INTEGER NOT NULL REFERENCES layout, limits INTEGER REFERENCES limit_set);
CREATE INDEX run_unit ON run(unit, program, start, run_index);
CREATE INDEX run_start ON run(start);
-- Units are asked for that did not pass at once: few of them.
CREATE INDEX run_not_passed ON run(unit) WHERE code <= 0;
CREATE INDEX run_again ON run(unit) WHERE first = 0;

-- The arrays are JSON, by position of the layout: vals in the unit of the component, codes (null: no result), seconds.
-- texts and comments are JSON objects, position -> text. In texts stands what is no finite number or does not fit a
-- double; its number is null. An archive for questions without values has empty arrays.
CREATE TABLE run_values(
  run INTEGER PRIMARY KEY REFERENCES run ON DELETE CASCADE,
  start INTEGER NOT NULL,     -- as in its run: the index of keys grows at its end, as time goes on
  key BLOB NOT NULL,          -- SHA-256 of unit, program, start_text, run_index, position
  revision INTEGER NOT NULL DEFAULT 1,
  content BLOB NOT NULL,      -- SHA-256 of all that the run says
  start_text TEXT NOT NULL, duration REAL, operator TEXT, panel TEXT, source TEXT, comment TEXT,
  vals TEXT NOT NULL, codes TEXT NOT NULL, seconds TEXT, texts TEXT, comments TEXT,
  attributes INTEGER REFERENCES attribute_set,
  UNIQUE(start, key, revision));

-- What failed in current revisions, one row each: all failing measurements and, where it is none of them, what failed
-- first. Lists of failures need no arrays.
CREATE TABLE failure(
  run INTEGER NOT NULL REFERENCES run ON DELETE CASCADE, component INTEGER NOT NULL, code INTEGER NOT NULL, num REAL,
  is_first INTEGER NOT NULL, PRIMARY KEY(run, component)) WITHOUT ROWID;
CREATE INDEX failure_component ON failure(component);

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

-- What lots call their bins: every name that one was given, beside the others. Runs have the number in hard_bin and
-- soft_bin.
CREATE TABLE bin(
  product TEXT NOT NULL, lot TEXT NOT NULL, program TEXT NOT NULL, is_soft INTEGER NOT NULL, number INTEGER NOT NULL,
  name TEXT NOT NULL,
  verdict TEXT NOT NULL, -- 'P' or 'F' for units that passed or failed; else ''
  PRIMARY KEY(product, lot, program, is_soft, number, name, verdict)) WITHOUT ROWID;
