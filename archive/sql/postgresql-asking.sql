-- A PostgreSQL 15 server that keeps no runs and asks several others that do, each the runs of its products: the tables of an
-- archive, divided by product. What many runs share is copied as it grows; the numbers that archive_set_node gave are
-- different everywhere. See docs/scale.md. Run by the superuser in an empty database; then CREATE SERVER and CREATE USER
-- MAPPING for each node, and archive_add_node.
CREATE EXTENSION postgres_fdw;

-- Each node joins and counts its own.
DO $$
BEGIN
  EXECUTE format('ALTER DATABASE %I SET enable_partitionwise_join = on', current_database());
  EXECUTE format('ALTER DATABASE %I SET enable_partitionwise_aggregate = on', current_database());
  EXECUTE format('ALTER DATABASE %I SET jit = off', current_database()); -- it pays for work that the nodes do
END $$;

CREATE TABLE unit(
  id bigint, product text, lot text, serial text, ident text, wafer text, is_panel smallint, own text, seen_ident text) PARTITION BY LIST(product);
CREATE TABLE component(
  id int PRIMARY KEY, program text, identity text, path text, kind smallint, parent int, ident text, name text);
CREATE TABLE layout(
  id int PRIMARY KEY, hash bytea, program text, program_ident text, version text);
CREATE TABLE layout_item(
  layout int, pos int, component int, data_type smallint, unit text, unit_code int, factor smallint, PRIMARY KEY(layout, pos));
CREATE TABLE limit_set(
  id int PRIMARY KEY, hash bytea, lower float8[], lower_op text[], upper float8[], upper_op text[], nominal float8[],
  inverted boolean[], lower_texts jsonb, upper_texts jsonb);
CREATE TABLE attribute_set(
  id int PRIMARY KEY, attributes text);
CREATE TABLE run(
  id bigint, unit bigint, program text, product text, start bigint, utc_offset smallint, run_index int,
  test_index int, code smallint, first smallint, current smallint, is_panel smallint, station text, position int,
  site smallint, x int, y int, hard_bin int, soft_bin int, layout int, limits int) PARTITION BY LIST(product);
CREATE TABLE run_values(
  start bigint, run bigint, product text, key bytea, revision int, content bytea, start_text text, duration float8,
  operator text, panel text, source text, comment text, vals float8[], codes smallint[], seconds float4[],
  texts jsonb, comments jsonb, attributes int) PARTITION BY LIST(product);
CREATE TABLE failure(
  start bigint, run bigint, product text, component int, code smallint, num float8, is_first smallint) PARTITION BY LIST(product);
CREATE TABLE summary(
  id bigint, product text, station text, layout int, limits int, day int, runs bigint, results bigint[],
  failed bigint[], not_numbers bigint[], counts bigint[], firsts float8[], means float8[], squares float8[],
  mins float8[], maxs float8[], passed_counts bigint[], passed_firsts float8[], passed_means float8[],
  passed_squares float8[]) PARTITION BY LIST(product);
CREATE TABLE bin(
  product text, lot text, program text, is_soft smallint, number int, name text, verdict text) PARTITION BY LIST(product);

CREATE VIEW value AS
  SELECT r.id AS run, nullif(r.start, 9223372036854775807) AS start, v.start_text, u.product, u.lot, u.serial, u.wafer,
    r.is_panel, r.station, r.program, r.first, r.code AS run_code, c.path, c.ident, c.kind, i.component, i.pos, i.unit,
    v.vals[i.pos + 1] AS num, v.texts ->> i.pos::text AS text, v.codes[i.pos + 1] AS code,
    s.lower[i.pos + 1] AS lower, s.upper[i.pos + 1] AS upper
  FROM run r JOIN unit u ON u.id = r.unit JOIN run_values v ON v.start = r.start AND v.run = r.id
    JOIN layout_item i ON i.layout = r.layout JOIN component c ON c.id = i.component LEFT JOIN limit_set s ON s.id = r.limits
  WHERE r.current = 1 AND v.codes[i.pos + 1] IS NOT NULL;

CREATE VIEW measured_day AS
  SELECT CASE WHEN s.day < 2147483647 THEN date '1970-01-01' + s.day END AS day, s.product, s.station,
    l.program, c.path, c.ident, i.component, i.unit,
    m.lower[i.pos + 1] AS lower, m.upper[i.pos + 1] AS upper,
    s.results[i.pos + 1] AS results, s.failed[i.pos + 1] AS failed, s.counts[i.pos + 1] AS count,
    CASE WHEN s.counts[i.pos + 1] > 0 THEN s.firsts[i.pos + 1] + s.means[i.pos + 1] END AS mean,
    CASE WHEN s.counts[i.pos + 1] > 1 THEN sqrt(s.squares[i.pos + 1] / (s.counts[i.pos + 1] - 1)) END AS sigma,
    s.mins[i.pos + 1] AS min, s.maxs[i.pos + 1] AS max
  FROM summary s JOIN layout l ON l.id = s.layout JOIN layout_item i ON i.layout = s.layout
    JOIN component c ON c.id = i.component LEFT JOIN limit_set m ON m.id = s.limits
  WHERE c.kind = 7 AND s.results[i.pos + 1] > 0;

-- Which runs stand on a node: those of some products, or of all products that no other node has. May be said again, with
-- more products.
CREATE FUNCTION archive_set_products(node int, server name, products text[] DEFAULT NULL) RETURNS void LANGUAGE plpgsql AS $$
DECLARE
  parent text;
  own text := 'DEFAULT';
BEGIN
  IF products IS NOT NULL THEN
    SELECT format('FOR VALUES IN (%s)', string_agg(quote_literal(one), ', ')) INTO own FROM unnest(products) one;
  END IF;
  FOREACH parent IN ARRAY ARRAY['unit', 'run', 'run_values', 'failure', 'summary', 'bin'] LOOP
    EXECUTE format('DROP FOREIGN TABLE IF EXISTS %I', parent || '_' || node);
    EXECUTE format('CREATE FOREIGN TABLE %I PARTITION OF %I %s SERVER %I OPTIONS (table_name %L)',
      parent || '_' || node, parent, own, server, parent);
  END LOOP;
END $$;

-- Copies what runs share and is new: rows are only ever added, with growing numbers. A node that is away has nothing new.
CREATE FUNCTION archive_refresh() RETURNS int LANGUAGE plpgsql SECURITY DEFINER SET search_path FROM CURRENT AS $$
DECLARE
  node name;
  shared text;
  number text;
BEGIN
  PERFORM pg_advisory_xact_lock(5921134);
  FOR node IN SELECT srvname FROM pg_foreign_server JOIN pg_namespace ON nspname = srvname LOOP
    BEGIN
      FOREACH shared IN ARRAY ARRAY['layout_item', 'layout', 'component', 'limit_set', 'attribute_set'] LOOP
        number := CASE shared WHEN 'layout_item' THEN 'layout' ELSE 'id' END;
        EXECUTE format('INSERT INTO %1$I SELECT * FROM %2$I.%1$I WHERE %3$I > (SELECT coalesce(max(%3$I), 0) FROM %1$I '
          'WHERE %3$I / 100000000 = (SELECT node FROM archive_node WHERE server = %2$L)) ON CONFLICT DO NOTHING',
          shared, node, number);
      END LOOP;
    EXCEPTION WHEN sqlclient_unable_to_establish_sqlconnection OR connection_failure THEN
      RAISE WARNING '%', SQLERRM;
    END;
  END LOOP;
  RETURN 5;
END $$;
CREATE TABLE archive_node(node int PRIMARY KEY, server name NOT NULL UNIQUE);
-- Read by whoever opens the archive.
CREATE VIEW archive_meta AS SELECT archive_refresh() AS version;

-- Lets this server ask a node, which is known by CREATE SERVER.
CREATE FUNCTION archive_add_node(node int, server name, products text[] DEFAULT NULL) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
  PERFORM archive_set_products(node, server, products);
  INSERT INTO archive_node VALUES (node, server);
  EXECUTE format('CREATE SCHEMA %I', server);
  EXECUTE format('IMPORT FOREIGN SCHEMA public LIMIT TO (layout_item, layout, component, limit_set, attribute_set) FROM SERVER %1$I '
    'INTO %1$I', server);
END $$;

-- Runs go to the node of their product and leave it there, never through this server.
CREATE FUNCTION archive_month(at bigint) RETURNS void LANGUAGE plpgsql AS $$
BEGIN
  RAISE EXCEPTION 'this server only asks others; add runs to the one that keeps their product';
END $$;
CREATE FUNCTION archive_drop_months(before bigint) RETURNS bigint LANGUAGE plpgsql AS $$
BEGIN
  RAISE EXCEPTION 'this server only asks others; remove runs from those that keep them';
END $$;
CREATE FUNCTION archive_refuse() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
  RAISE EXCEPTION 'this server only asks others; add runs to the one that keeps their product';
END $$;
CREATE TRIGGER only_asks BEFORE INSERT OR UPDATE OR DELETE ON unit EXECUTE FUNCTION archive_refuse();
CREATE TRIGGER only_asks BEFORE INSERT OR UPDATE OR DELETE ON run EXECUTE FUNCTION archive_refuse();
CREATE TRIGGER only_asks BEFORE INSERT OR UPDATE OR DELETE ON failure EXECUTE FUNCTION archive_refuse();
CREATE TRIGGER only_asks BEFORE INSERT OR UPDATE OR DELETE ON bin EXECUTE FUNCTION archive_refuse();

DO $$
BEGIN
  IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = 'zyn_viewer') THEN
    CREATE ROLE zyn_viewer NOLOGIN;
  END IF;
END $$;
GRANT SELECT ON archive_meta, unit, component, layout, layout_item, limit_set, attribute_set, run, failure, summary, bin, value, measured_day
  TO zyn_viewer;
GRANT SELECT (start, run, product, key, revision, content, start_text, duration, panel, source, comment, vals, codes, seconds, texts,
  comments, attributes) ON run_values TO zyn_viewer;
