<?xml version="1.0" encoding="UTF-8"?>
<TestPlan Version="3.0.0">
    <Attributes Ident="10">
        <Attribute Name="Retries" Type="Real">-2147485412</Attribute>
    </Attributes>
</TestPlan>
