-- Version 3 to 4: keys of runs in the order of their starts, so that adding to a large archive is no dearer.
DROP VIEW value;
CREATE TABLE run_values_4(
  run INTEGER PRIMARY KEY REFERENCES run ON DELETE CASCADE,
  start INTEGER NOT NULL,     -- as in its run: the index of keys grows at its end, as time goes on
  key BLOB NOT NULL,          -- SHA-256 of unit, program, start_text, run_index, position
  revision INTEGER NOT NULL DEFAULT 1,
  content BLOB NOT NULL,      -- SHA-256 of all that the run says
  start_text TEXT NOT NULL, duration REAL, operator TEXT, panel TEXT, source TEXT, comment TEXT,
  vals TEXT NOT NULL, codes TEXT NOT NULL, seconds TEXT, texts TEXT, comments TEXT,
  attributes INTEGER REFERENCES attribute_set,
  UNIQUE(start, key, revision));
INSERT INTO run_values_4(run, start, key, revision, content, start_text, duration, operator, panel, source, comment, vals,
    codes, seconds, texts, comments, attributes)
  SELECT v.run, r.start, v.key, v.revision, v.content, v.start_text, v.duration, v.operator, v.panel, v.source, v.comment,
    v.vals, v.codes, v.seconds, v.texts, v.comments, v.attributes
  FROM run_values v JOIN run r ON r.id = v.run ORDER BY v.run;
DROP TABLE run_values;
ALTER TABLE run_values_4 RENAME TO run_values;
PRAGMA user_version = 4;
