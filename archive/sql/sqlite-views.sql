-- Views of an archive in SQLite; made anew with each upgrade, as they hold nothing.
-- For people and other tools: one row a value.
DROP VIEW IF EXISTS value;
CREATE VIEW value AS
  SELECT r.id AS run, nullif(r.start, 9223372036854775807) AS start, v.start_text, u.product, u.lot, u.serial, u.wafer,
    r.is_panel, r.station, r.program, r.first, r.code AS run_code, c.path, c.ident, c.kind, i.component, i.pos, i.unit,
    v.vals ->> i.pos AS num, v.texts ->> ('$.' || i.pos) AS text, v.codes ->> i.pos AS code,
    s.lower ->> i.pos AS lower, s.upper ->> i.pos AS upper
  FROM run r JOIN unit u ON u.id = r.unit JOIN run_values v ON v.run = r.id JOIN layout_item i ON i.layout = r.layout
    JOIN component c ON c.id = i.component LEFT JOIN limit_set s ON s.id = r.limits
  WHERE r.current AND v.codes ->> i.pos IS NOT NULL;

-- For people and other tools: one row for each measurement, day, product, station, layout and set of limits. Sigma is
-- that of a sample. Whole numbers in JSON are integers, and those would be divided as such.
DROP VIEW IF EXISTS measured_day;
CREATE VIEW measured_day AS
  SELECT CASE WHEN s.day < 2147483647 THEN date(s.day * 86400, 'unixepoch') END AS day, s.product, s.station,
    l.program, c.path, c.ident, i.component, i.unit,
    m.lower ->> i.pos AS lower, m.upper ->> i.pos AS upper,
    s.results ->> i.pos AS results, s.failed ->> i.pos AS failed, s.counts ->> i.pos AS count,
    CASE WHEN (s.counts ->> i.pos) > 0 THEN CAST((s.firsts ->> i.pos) + (s.means ->> i.pos) AS REAL) END AS mean,
    CASE WHEN (s.counts ->> i.pos) > 1
      THEN sqrt(CAST(s.squares ->> i.pos AS REAL) / ((s.counts ->> i.pos) - 1)) END AS sigma,
    s.mins ->> i.pos AS min, s.maxs ->> i.pos AS max
  FROM summary s JOIN layout l ON l.id = s.layout JOIN layout_item i ON i.layout = s.layout
    JOIN component c ON c.id = i.component LEFT JOIN limit_set m ON m.id = s.limits
  WHERE c.kind = 7 AND (s.results ->> i.pos) > 0;
