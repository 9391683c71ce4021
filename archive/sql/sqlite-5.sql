-- Version 4 to 5: names of bins. They come when their lots are added again.
-- What lots call their bins: every name that one was given, beside the others. Runs have the number in hard_bin and
-- soft_bin.
CREATE TABLE bin(
  product TEXT NOT NULL, lot TEXT NOT NULL, program TEXT NOT NULL, is_soft INTEGER NOT NULL, number INTEGER NOT NULL,
  name TEXT NOT NULL,
  verdict TEXT NOT NULL, -- 'P' or 'F' for units that passed or failed; else ''
  PRIMARY KEY(product, lot, program, is_soft, number, name, verdict)) WITHOUT ROWID;
PRAGMA user_version = 5;
